#pragma once

#include <QLineEdit>

namespace velorama {

/// A field that the separators of the album's text formats cannot be typed into: comma, apostrophe
/// and vertical bar. What is pasted or dropped is not looked at.
class DescriptionEdit : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
};

}  // namespace velorama
