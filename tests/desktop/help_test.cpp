#include "desktop/main_window.h"

#include "support/http_server.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

const QString helpTitle = QStringLiteral("Help");
const QString updateTitle = QStringLiteral("Check for Updates");
const QString updatePath = QStringLiteral("/updates/update_vr.txt");
const QString indexPath = QStringLiteral("/help/vrhelp/index.html");

// The program asks a server of this process, which answers while the test waits.
class HelpOnline : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        server.serveFolder(QStringLiteral(VELORAMA_SOURCE_DIR "/server"));
        Program& program =
            session.start({}, {QStringLiteral("VELORAMA_SERVER_ROOT=") + server.address()});
        main.emplace(session, program);
        ASSERT_NE(main->window(), 0U);
    }
    qint64 pid() const { return main->program().pid(); }
    WindowId openHelp() {
        session.activate(main->window());
        session.key(QStringLiteral("F1"));
        return session.waitForWindow(helpTitle, pid());
    }

    test::HttpServer server;
    DesktopSession session;
    std::optional<MainWindow> main;
};

TEST_F(HelpOnline, F1OpensOneWindowBesideTheMainOne) {
    const WindowId help = openHelp();
    ASSERT_NE(help, 0U);
    ASSERT_TRUE(waitFor([&] { return server.asked.count(indexPath) >= 2; }));
    EXPECT_EQ(openHelp(), help);
    const auto before = server.asked.count(indexPath);
    ASSERT_TRUE(waitFor([&] { return server.asked.count(indexPath) > before; }));
    EXPECT_EQ(session.windows(helpTitle, pid()).size(), 1U);
    session.activate(help);
    session.key(QStringLiteral("F1"));
    session.key(QStringLiteral("alt+F4"));
    EXPECT_TRUE(session.waitForNoWindow(helpTitle, pid()));
    EXPECT_TRUE(main->waitForNoDialog());
    EXPECT_EQ(main->close(), 0);
}

TEST_F(HelpOnline, TheEndOfTheProgramTakesHelpAlong) {
    ASSERT_NE(openHelp(), 0U);
    session.activate(main->window());
    EXPECT_EQ(main->close(), 0);
}

TEST_F(HelpOnline, TheUpdateCheckWaitsASecondAndTells) {
    main->menu(QStringLiteral("h"), QStringLiteral("u"));
    ASSERT_NE(main->waitForDialog(updateTitle), 0U);
    EXPECT_EQ(server.asked, QStringList({updatePath}));
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(main->waitForNoDialog());
    EXPECT_EQ(main->close(), 0);
}

TEST_F(HelpOnline, AboutChecksForUpdatesToo) {
    server.shut();
    main->menu(QStringLiteral("h"), QStringLiteral("a"));
    ASSERT_NE(main->waitForDialog(QStringLiteral("About")), 0U);
    session.key(QStringLiteral("alt+u"));
    ASSERT_NE(main->waitForDialog(updateTitle), 0U);
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(session.waitForNoWindow(updateTitle, pid()));
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(main->waitForNoDialog());
    EXPECT_EQ(main->close(), 0);
}

TEST_F(HelpOnline, AServerThatSaysNothingHoldsNoProgramThatEnds) {
    server.behave(updatePath, [](QTcpSocket&) {});
    main->menu(QStringLiteral("h"), QStringLiteral("u"));
    ASSERT_TRUE(waitFor([&] { return server.asked.contains(updatePath); }));
    ASSERT_TRUE(session.run(QStringLiteral("kill"), {QString::number(pid())}).has_value());
    EXPECT_EQ(main->program().waitForExit(), 0);
}

}  // namespace
}  // namespace velorama::desktop
