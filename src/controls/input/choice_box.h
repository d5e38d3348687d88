#pragma once

#include <QComboBox>

namespace velorama {

/// A list that drops down from the entry chosen. It asks for the width of its longest entry and may
/// get less: an entry that does not fit ends in an ellipsis, and the tooltip has the whole of it.
class ChoiceBox : public QComboBox {
    Q_OBJECT
public:
    explicit ChoiceBox(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The entry as it is shown.
    QString fitted() const;
};

}  // namespace velorama
