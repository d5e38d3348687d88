#pragma once

#include <QComboBox>

namespace velorama {

/// A list that drops down from the entry chosen. It asks for the width of its longest entry and may
/// get less: an entry that does not fit ends in an ellipsis, and the tooltip has the whole of it.
class ChoiceBox : public QComboBox {
    Q_OBJECT
public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    /// The entry chosen, or a text that was set and is none.
    QString Text() const { return currentIndex() < 0 ? other_ : currentText(); }
    /// Chooses the entry of this text. One that is no entry is shown until an entry is chosen, and
    /// is not offered again.
    void setText(const QString& text);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The entry as it is shown.
    QString fitted() const;
    void tellOther();

    QString other_;
};

}  // namespace velorama
