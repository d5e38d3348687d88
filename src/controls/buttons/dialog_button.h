#pragma once

#include <QPushButton>

namespace velorama {

/// A push button of a dialog. Styles give the default button the same look with and without the
/// keyboard; here a line inside the edge tells that it has it.
class DialogButton : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama
