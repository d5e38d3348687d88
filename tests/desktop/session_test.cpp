#include "desktop/session.h"

#include "desktop/store.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

TEST(DesktopSession, HasTheScreenThatWasAskedFor) {
    DesktopSession session({.width = 800, .height = 500, .dpi = 144});
    ASSERT_TRUE(session.isUp());
    EXPECT_EQ(session.screenshot().size(), QSize(800, 500));
    EXPECT_TRUE(session.windows(QString()).empty());
}

TEST(DesktopSession, CommandThatFailsGivesNothing) {
    DesktopSession session({.windowManager = false});
    ASSERT_TRUE(session.isUp());
    EXPECT_EQ(session.run(QStringLiteral("echo"), {QStringLiteral("a b")}), QByteArray("a b\n"));
    EXPECT_EQ(session.run(QStringLiteral("false"), {}), std::nullopt);
    EXPECT_EQ(session.run(QStringLiteral("/no/such/command"), {}), std::nullopt);
}

TEST(DesktopStore, GivesBackWhatWasSetWhateverTheLetterCase) {
    DesktopSession session({.windowManager = false});
    const Store store(session);
    EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")),
              std::nullopt);

    ASSERT_TRUE(store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX"),
                                 QStringLiteral("1")));
    ASSERT_TRUE(store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX"),
                                 QStringLiteral("2")));

    EXPECT_EQ(store.value(QStringLiteral("Software\\Brightquay\\VELORAMA\\mfrmPRGMAIN\\View"),
                          QStringLiteral("tabidx")),
              QStringLiteral("2"));
}

}  // namespace
}  // namespace velorama::desktop
