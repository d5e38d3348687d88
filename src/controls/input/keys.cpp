#include "controls/input/keys.h"

namespace velorama {
namespace {

struct KeyRow {
    int qtKey;
    int code;
};

constexpr KeyRow keyTable[] = {
    {Qt::Key_Tab, KeyTab},
    {Qt::Key_Backtab, KeyTab},
    {Qt::Key_Return, KeyReturn},
    {Qt::Key_Enter, KeyReturn},
    {Qt::Key_Shift, KeyShift},
    {Qt::Key_Control, KeyControl},
    {Qt::Key_Alt, KeyAlt},
    {Qt::Key_Escape, KeyEscape},
    {Qt::Key_Left, KeyLeft},
    {Qt::Key_Up, KeyUp},
    {Qt::Key_Right, KeyRight},
    {Qt::Key_Down, KeyDown},
    {Qt::Key_Insert, KeyInsert},
    {Qt::Key_Delete, KeyDelete},
    {Qt::Key_Menu, KeyContextMenu},
    {Qt::Key_Backspace, 8},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Print, 44},
    {Qt::Key_Meta, 91},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Comma, KeyComma},
    {Qt::Key_Backslash, KeyBackslash},
    {Qt::Key_Bar, KeyBackslash},
    {Qt::Key_Apostrophe, KeyApostrophe},
};

}  // namespace

int keyCode(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return key;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return KeyF1 + key - Qt::Key_F1;
    }
    for (const KeyRow& row : keyTable) {
        if (row.qtKey == key) {
            return row.code;
        }
    }
    return 0;
}

int shiftMask(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? ShiftDown : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? CtrlDown : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? AltDown : 0);
}

int mouseButton(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return 1;
        case Qt::RightButton:
            return 2;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

int heldButtons(Qt::MouseButtons buttons) {
    int held = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        held += buttons.testFlag(button) ? mouseButton(button) : 0;
    }
    return held;
}

}  // namespace velorama
