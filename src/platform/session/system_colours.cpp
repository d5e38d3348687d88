#include "platform/session/system_colours.h"

#include <QGuiApplication>
#include <QPalette>

#include <array>

namespace velorama {
namespace {

struct Role {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr Role active(QPalette::ColorRole role) {
    return {QPalette::Active, role};
}

/// The palette colour that each entry of the system's colour table is taken from. 3D highlight is
/// the page colour of the program, so it is the quiet surface that text and lists stand on. The
/// caption of a window is as quiet as the window on desktops of today.
constexpr std::array<Role, systemColourCount> roles = {{
    active(QPalette::Mid),                       // 0 scroll bar
    active(QPalette::Window),                    // 1 desktop
    active(QPalette::Window),                    // 2 active caption
    {QPalette::Inactive, QPalette::Window},      // 3 inactive caption
    active(QPalette::Window),                    // 4 menu
    active(QPalette::Base),                      // 5 window background
    active(QPalette::Shadow),                    // 6 window frame
    active(QPalette::WindowText),                // 7 menu text
    active(QPalette::Text),                      // 8 window text
    active(QPalette::WindowText),                // 9 caption text
    active(QPalette::Window),                    // 10 active border
    {QPalette::Inactive, QPalette::Window},      // 11 inactive border
    active(QPalette::Mid),                       // 12 application workspace
    active(QPalette::Highlight),                 // 13 highlight
    active(QPalette::HighlightedText),           // 14 highlighted text
    active(QPalette::Button),                    // 15 button face
    active(QPalette::Mid),                       // 16 button shadow
    {QPalette::Disabled, QPalette::WindowText},  // 17 grey text
    active(QPalette::ButtonText),                // 18 button text
    {QPalette::Inactive, QPalette::WindowText},  // 19 inactive caption text
    active(QPalette::Base),                      // 20 3D highlight
    active(QPalette::Shadow),                    // 21 3D dark shadow
    active(QPalette::Midlight),                  // 22 3D light
    active(QPalette::ToolTipText),               // 23 tool tip text
    active(QPalette::ToolTipBase),               // 24 tool tip background
}};

}  // namespace

Colour GetSysColor(int index) {
    if (index < 0 || index >= systemColourCount) {
        return 0;
    }
    const Role role = roles[static_cast<std::size_t>(index)];
    const QPalette palette = qGuiApp != nullptr ? QGuiApplication::palette() : QPalette();
    const QRgb rgb = palette.color(role.group, role.role).rgb();
    return (qBlue(rgb) << 16) | (qGreen(rgb) << 8) | qRed(rgb);
}

Colour OleTranslateColor(Colour colour) {
    if (colour >= 0) {
        return colour;
    }
    const quint32 index = static_cast<quint32>(colour) & 0x7FFFFFFFU;
    return index < systemColourCount ? GetSysColor(static_cast<int>(index)) : -1;
}

}  // namespace velorama
