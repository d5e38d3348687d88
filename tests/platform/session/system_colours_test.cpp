#include "platform/session/system_colours.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace velorama {
namespace {

/// Gives the application one colour for a role, and takes it back.
class RoleColour {
public:
    RoleColour(QPalette::ColorRole role, const QColor& colour)
        : before_(QGuiApplication::palette()) {
        QPalette changed = before_;
        changed.setColor(role, colour);
        QGuiApplication::setPalette(changed);
    }
    RoleColour(const RoleColour&) = delete;
    RoleColour& operator=(const RoleColour&) = delete;
    ~RoleColour() { QGuiApplication::setPalette(before_); }

private:
    QPalette before_;
};

TEST(SystemColours, AreThePalettesWithRedInTheLowByte) {
    const RoleColour face(QPalette::Button, QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(GetSysColor(15), 0x563412);
}

TEST(SystemColours, FollowADarkPalette) {
    const RoleColour surface(QPalette::Base, QColor(0x20, 0x21, 0x22));
    EXPECT_EQ(GetSysColor(5), 0x222120);
    EXPECT_EQ(GetSysColor(20), 0x222120);
}

TEST(SystemColours, EachEntryHasItsRole) {
    const QColor colour(1, 2, 3);
    const struct {
        int index;
        QPalette::ColorRole role;
    } rows[] = {{2, QPalette::Window},           {8, QPalette::Text},
                {13, QPalette::Highlight},       {16, QPalette::Mid},
                {14, QPalette::HighlightedText}, {18, QPalette::ButtonText}};
    for (const auto& row : rows) {
        const RoleColour changed(row.role, colour);
        EXPECT_EQ(GetSysColor(row.index), 0x030201) << row.index;
    }
}

TEST(SystemColours, OutsideTheTableThereIsNone) {
    EXPECT_EQ(GetSysColor(-1), 0);
    EXPECT_EQ(GetSysColor(25), 0);
    EXPECT_EQ(OleTranslateColor(systemColour(25)), -1);
    EXPECT_EQ(OleTranslateColor(-1), -1);
}

TEST(SystemColours, APlainColourStaysAsItIs) {
    EXPECT_EQ(OleTranslateColor(0), 0);
    EXPECT_EQ(OleTranslateColor(0xFF8040), 0xFF8040);
    EXPECT_EQ(OleTranslateColor(systemColour(15)), GetSysColor(15));
}

}  // namespace
}  // namespace velorama
