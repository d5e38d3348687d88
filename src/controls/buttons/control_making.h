#pragma once

#include "controls/buttons/push_button.h"

class QLabel;
class QPushButton;

namespace velorama {

/// A control under its name.
template <typename Control>
Control* make(const char* name, QWidget* parent) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

/// A flat button, for assistive tools its caption or else its tooltip.
cbtn* makeSymbolButton(QWidget* parent, const QString& name, const char* symbol,
                       const char* tooltip, const char* caption = "");
/// The same for a page: the mouse leaves the keyboard where it is, in the list that the button
/// works on.
cbtn* makeButton(QWidget* parent, const QString& name, const char* symbol, const char* tooltip,
                 const char* caption = "");
/// A button of a dialog, as wide as its neighbours.
QPushButton* makeDialogButton(QWidget* dialog, const char* name, const QString& caption,
                              const QString& tooltip = {});
/// A text that is no markup, whatever it looks like.
QLabel* makeText(QWidget* parent, const char* name, const QString& text = {});
/// The same in bold letters, larger by `scale`.
QLabel* makeTitle(QWidget* parent, const char* name, const QString& text, qreal scale);

}  // namespace velorama
