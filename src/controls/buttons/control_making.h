#pragma once

#include "controls/buttons/push_button.h"

namespace velorama {

/// A control under its name.
template <typename Control>
Control* make(const char* name, QWidget* parent) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

/// A button of a page, for assistive tools its caption or else its tooltip. The mouse leaves the
/// keyboard where it is: in the list that the button works on.
cbtn* makeButton(QWidget* parent, const QString& name, const char* symbol, const char* tooltip,
                 const char* caption = "");

}  // namespace velorama
