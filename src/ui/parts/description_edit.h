#pragma once

#include <QLineEdit>

namespace velorama {

/// A field that the separators of the album's text formats cannot be typed into: comma, apostrophe
/// and vertical bar. What is pasted or dropped is not looked at, but for its line ends.
class DescriptionEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit DescriptionEdit(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
};

}  // namespace velorama
