#pragma once

namespace velorama {

/// Asks the window for one of the popup menus of the two picture lists, at a place in twips in the
/// coordinates of the list's parent.
struct PopupRequest {
    enum class Menu { mnuFOUNDTOP, mnuSELECTEDTOP };
    Menu menu = Menu::mnuFOUNDTOP;
    float x = 0;
    float y = 0;
    /// The first entry (Add, Remove) is the menu's default item.
    bool firstIsDefault = false;
    bool operator==(const PopupRequest&) const = default;
};

/// How far from a list's left edge, in twips, the context-menu key shows the popup.
constexpr float popupKeyOffset = 200;

}  // namespace velorama
