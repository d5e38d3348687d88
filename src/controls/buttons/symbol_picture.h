#pragma once

#include <QWidget>

namespace velorama {

/// A symbol (controls/buttons/icon.h) as a picture of its own, in the palette's accent, as large as
/// the widget.
class SymbolPicture : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    void setSymbol(const QString& name);
    QString Symbol() const { return symbol_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol_;
};

}  // namespace velorama
