#include "platform/background/desktop_background.h"

#include "platform/background/background_means.h"
#include "support/test_world.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString noBus = QStringLiteral("no such bus");

BackgroundSession sessionWith(const QStringList& variables,
                              QDeadlineTimer deadline = QDeadlineTimer(20000)) {
    QProcessEnvironment environment;
    for (const QString& one : variables) {
        environment.insert(one.section(u'=', 0, 0), one.section(u'=', 1));
    }
    return {environment, QDBusConnection(noBus), deadline};
}

TEST(DesktopBackground, desktopsComeFromBothVariables) {
    EXPECT_EQ(
        sessionWith({QStringLiteral("XDG_CURRENT_DESKTOP=Budgie:GNOME"),
                     QStringLiteral("DESKTOP_SESSION=/usr/share/xsessions/plasma")})
            .desktops(),
        QStringList({QStringLiteral("budgie"), QStringLiteral("gnome"), QStringLiteral("plasma")}));
    EXPECT_EQ(sessionWith({QStringLiteral("XDG_CURRENT_DESKTOP=::")}).desktops(), QStringList());
    EXPECT_EQ(sessionWith({}).desktops(), QStringList());
}

TEST(DesktopBackground, configFolderHasItsUsualPlace) {
    EXPECT_EQ(sessionWith({QStringLiteral("HOME=/home/ann")}).configFolder(),
              QStringLiteral("/home/ann/.config"));
    EXPECT_EQ(sessionWith({QStringLiteral("HOME=/h"), QStringLiteral("XDG_CONFIG_HOME=/c")})
                  .configFolder(),
              QStringLiteral("/c"));
}

TEST(DesktopBackground, argumentsReachAProgramAsTheyAre) {
    const auto output = sessionWith({}).run(QStringLiteral("printf"),
                                            {QStringLiteral("%s|"), QStringLiteral("a b"),
                                             QStringLiteral("$(id) ;'\"\n%"), QStringLiteral("")});
    EXPECT_EQ(output, QByteArray("a b|$(id) ;'\"\n%||"));
}

TEST(DesktopBackground, programThatFailsGivesNothing) {
    EXPECT_EQ(sessionWith({}).run(QStringLiteral("false"), {}), std::nullopt);
    EXPECT_EQ(sessionWith({}).run(QStringLiteral("no-such-program-here"), {}), std::nullopt);
}

TEST(DesktopBackground, programThatHangsIsEnded) {
    // Ending at all is what counts: the program would run for as good as ever.
    EXPECT_EQ(sessionWith({}, QDeadlineTimer(50))
                  .run(QStringLiteral("sleep"), {QStringLiteral("1000000")}),
              std::nullopt);
}

TEST(DesktopBackground, addressesArePlain) {
    EXPECT_EQ(fileAddress(QStringLiteral("/home/ann/.local/Velorama Wallpaper.bmp")),
              QStringLiteral("file:///home/ann/.local/Velorama%20Wallpaper.bmp"));
    EXPECT_EQ(fileAddress(QString::fromUtf8("/a'b\"c%d#e?f;g\nh\\\xC3\xBC$(i)&~")),
              QStringLiteral("file:///a%27b%22c%25d%23e%3Ff%3Bg%0Ah%5C%C3%BC%24%28i%29%26~"));
}

TEST(DesktopBackground, settingTextsAreQuoted) {
    const QString odd = QString::fromUtf8("it's \"so\" \\n\n\t\xC3\xBC $(x) %s");
    EXPECT_EQ(settingText(QStringLiteral("plain")), QStringLiteral("'plain'"));
    EXPECT_EQ(settingText(odd),
              QString::fromUtf8("'it\\'s \\\"so\\\" \\\\n\\n\\t\xC3\xBC $(x) %s'"));
    EXPECT_EQ(fromSettingText(settingText(odd)), odd);
    EXPECT_EQ(fromSettingText(QStringLiteral("\"it's\"")), QStringLiteral("it's"));
    EXPECT_EQ(fromSettingText(QStringLiteral("'\\u0001\\U0001f304\\n'")),
              QString::fromUtf8("\x01\xF0\x9F\x8C\x84\n"));
}

TEST(DesktopBackground, brokenSettingTextsAreBorne) {
    for (const char* text :
         {"", "'", "''", "'\\'", "'\\u'", "'\\u12'", "'\\U00'", "'\\Uffffffff'"}) {
        EXPECT_LE(fromSettingText(QLatin1String(text)).size(), 2) << text;
    }
}

TEST(DesktopBackground, swayPathsAreEscapedLetterByLetter) {
    EXPECT_EQ(
        swayCommand(QString::fromUtf8("/a_b-c.d/1 $(x)\"';~\xC3\xBC")),
        QString::fromUtf8("output * bg \"/a_b-c.d/1\\ \\$\\(x\\)\\\"\\'\\;\\~\xC3\xBC\" fill"));
}

TEST(DesktopBackground, onlyFilesThatAreThereAreSet) {
    const QString folder = test::temporaryFolder();
    const auto session = sessionWith({});
    EXPECT_FALSE(setBackground(session, QString()));
    EXPECT_FALSE(setBackground(session, QStringLiteral("relative.bmp")));
    EXPECT_FALSE(setBackground(session, folder));
    EXPECT_FALSE(setBackground(session, folder + QStringLiteral("/not there.bmp")));
}

TEST(DesktopBackground, withoutDesktopBusOrDisplayItIsSilent) {
    const QString path = test::temporaryFolder() + QStringLiteral("/a.bmp");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const char* desktop :
         {"GNOME", "X-Cinnamon", "MATE", "KDE", "XFCE", "LXQt", "sway", "?"}) {
        EXPECT_FALSE(setBackground(
            sessionWith({QStringLiteral("XDG_CURRENT_DESKTOP=") + QLatin1String(desktop)}), path))
            << desktop;
    }
    EXPECT_FALSE(setBackground(sessionWith({QStringLiteral("DISPLAY=:59999")}), path));
}

/// A command `gsettings` of the test's own, which keeps each key in a file; taking a value away it
/// hangs when that is done.
class SlowSettings : public testing::Test {
protected:
    SlowSettings() {
        QFile command(folder + QStringLiteral("/gsettings"));
        EXPECT_TRUE(command.open(QIODevice::WriteOnly));
        command.write(
            "#!/bin/sh\n"
            "file=\"$0-$3\"\n"
            "if [ \"$1\" = get ]; then exec cat \"$file\"; fi\n"
            "printf %s \"$4\" > \"$file\"\n"
            "if [ \"$4\" = \"''\" ]; then exec sleep 1000000; fi\n");
        command.close();
        EXPECT_TRUE(command.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        qputenv("PATH", (folder + u':' + path).toUtf8());
    }
    ~SlowSettings() override { qputenv("PATH", path.toUtf8()); }

    QString fileOf(const QString& key) const {
        return folder + QStringLiteral("/gsettings-") + key;
    }
    void put(const QString& key, const QString& text) const {
        QFile file(fileOf(key));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    QByteArray stored(const QString& key) const {
        QFile file(fileOf(key));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    const QString path = qEnvironmentVariable("PATH");
    const QString folder = test::temporaryFolder();
};

TEST_F(SlowSettings, HaveThePictureAgainThatWasTakenAway) {
    const QString key = QStringLiteral("picture-filename");
    const QString picture = QStringLiteral("/home/ann/Velorama Wallpaper.bmp");
    put(key, settingText(picture));
    const QDeadlineTimer soon(500);
    EXPECT_FALSE(setMateBackground(sessionWith({QStringLiteral("PATH=") + path}, soon), picture));
    ASSERT_TRUE(soon.hasExpired());
    EXPECT_EQ(stored(key), settingText(picture).toUtf8());
}

}  // namespace
}  // namespace velorama
