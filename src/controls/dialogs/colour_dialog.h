#pragma once

#include "platform/session/system_colours.h"

#include <QString>

#include <optional>

class QWidget;

namespace velorama {

/// What a colour dialog is asked: the plain colour (0x00BBGGRR) it starts from.
struct ColourDialogRequest {
    QString title;
    Colour colour = 0;
};

/// Shows the program's own colour dialog and waits for it; nothing where it is cancelled. It blocks
/// the window of `owner`.
std::optional<Colour> askForColour(const ColourDialogRequest& request, QWidget* owner);

}  // namespace velorama
