#pragma once

#include <QKeyEvent>

namespace velorama {

/// Key codes and shift masks as the handlers of the forms know them.
enum KeyCode : int {
    KeyTab = 9,
    KeyReturn = 13,
    KeyShift = 16,
    KeyControl = 17,
    KeyAlt = 18,
    KeyEscape = 27,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeyContextMenu = 93,
    KeyF1 = 112,
    // Keys of the characters , \ | and ' on the layout that the codes were made for.
    KeyComma = 188,
    KeyBackslash = 220,
    KeyApostrophe = 222,
};

enum ShiftMask : int { ShiftDown = 1, CtrlDown = 2, AltDown = 4 };

/// Code of the key, 0 for one that has none here; letters and digits give their upper-case code.
int keyCode(const QKeyEvent& event);
/// Sum of the shift masks held.
int shiftMask(Qt::KeyboardModifiers modifiers);
/// 1 left, 2 right, 4 middle, 0 any other.
int mouseButton(Qt::MouseButton button);
/// The sum of those that are held.
int heldButtons(Qt::MouseButtons buttons);

}  // namespace velorama
