#pragma once

#include <QWidget>

namespace velorama {

/// One line of text. What does not fit is cut in the middle with an ellipsis, and the tooltip then
/// holds the whole of it.
class Label : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    QString Caption() const { return caption_; }
    void setCaption(const QString& caption);
    /// Whether it would be shown whole. Letters may take a fraction of a pixel more than their
    /// advances in whole pixels say.
    bool fits(const QString& caption) const;
    void setAlignment(Qt::Alignment alignment);
    void setForeColor(const QColor& colour);

signals:
    void MouseUp(int button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString cut(const QString& line) const;

    QString caption_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
    QColor foreColor_;
};

}  // namespace velorama
