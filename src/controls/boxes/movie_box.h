#pragma once

#include <QImage>
#include <QMovie>
#include <QWidget>

#include <memory>

namespace velorama {

/// Shows a GIF file and lets it move, a pixel to the device pixel, in the middle of `view`.
class MovieBox : public QWidget {
    Q_OBJECT
public:
    explicit MovieBox(QWidget* parent = nullptr) : QWidget(parent) {}

    /// A GIF file of this machine, which moves while the box is visible. One that does not move, is
    /// none or cannot be read shows nothing.
    void Navigate(const QString& file);
    /// A picture in the place of the film; a null one shows nothing.
    void setStill(const QImage& picture);
    /// The part of the box that is seen, in logical pixels.
    void setView(const QRect& view);
    /// Nothing where there is no film.
    const QMovie* movie() const { return movie_.get(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QImage frame() const { return movie_ ? movie_->currentImage() : still_; }

    std::unique_ptr<QMovie> movie_;
    QImage still_;
    QRect view_;
};

}  // namespace velorama
