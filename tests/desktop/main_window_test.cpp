#include "desktop/session.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

TEST(MainWindow, ComesUpAndClosesWithAltF4) {
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    Program& program = session.start();
    const WindowId window = session.waitForWindow(QStringLiteral("Velorama"), program.pid());
    ASSERT_NE(window, 0U);
    ASSERT_TRUE(session.activate(window));

    session.key(QStringLiteral("alt+F4"));

    EXPECT_EQ(program.waitForExit(), 0);
}

}  // namespace
}  // namespace velorama::desktop
