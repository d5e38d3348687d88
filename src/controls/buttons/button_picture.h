#pragma once

#include <QImage>
#include <QMetaType>
#include <QRectF>
#include <QString>

#include <memory>

class QPainter;
class QSvgRenderer;

namespace velorama {

/// A vector picture that buttons show. Copies share one drawing and one handle.
class ButtonPicture {
public:
    /// No picture: it paints nothing.
    ButtonPicture() = default;
    /// Reads an SVG file or resource. One that cannot be read or drawn gives no picture.
    explicit ButtonPicture(const QString& file);

    bool isNull() const { return drawing_ == nullptr; }
    /// The same picture, not merely one that looks alike.
    bool operator==(const ButtonPicture& other) const = default;

    /// Paints the picture as large as fits into `place` (logical pixels), drawn anew for the pixels
    /// of the device, so that no scale of the screen blurs it.
    void paint(QPainter& painter, const QRectF& place) const;

private:
    struct Drawing;
    std::shared_ptr<Drawing> drawing_;
};

}  // namespace velorama

Q_DECLARE_METATYPE(velorama::ButtonPicture)
