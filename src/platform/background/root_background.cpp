#include "platform/background/background_means.h"
#include "platform/background/root_window.h"

#include <QImageReader>
#include <QPainter>

namespace velorama {
namespace {

/// The middle of a picture in the proportions of `target`, without a copy of its pixels.
QImage middleOf(const QImage& picture, QSize target) {
    const QSize size = target.scaled(picture.size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    const int left = (picture.width() - size.width()) / 2;
    const uchar* first = picture.constScanLine((picture.height() - size.height()) / 2) +
                         qsizetype(left) * (picture.depth() / 8);
    return {first, size.width(), size.height(), picture.bytesPerLine(), picture.format()};
}

QImage composed(const QImage& picture, QSize whole, const std::vector<QRect>& monitors) {
    QImage result(whole, QImage::Format_RGB32);
    result.fill(Qt::black);
    QPainter painter(&result);
    for (const QRect& monitor : monitors) {
        painter.drawImage(
            monitor, middleOf(picture, monitor.size())
                         .scaled(monitor.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return result;
}

/// On Wayland the variable DISPLAY leads to a server whose root window nobody sees.
bool isWayland(const BackgroundSession& session) {
    return !session.variable("WAYLAND_DISPLAY").isEmpty() ||
           session.variable("XDG_SESSION_TYPE") == QStringLiteral("wayland");
}

}  // namespace

bool setRootBackground(const BackgroundSession& session, const QString& file) {
    const QString display = session.variable("DISPLAY");
    if (display.isEmpty() || isWayland(session)) {
        return false;
    }
    RootWindow root(display);
    if (!root.isConnected() || root.isCovered()) {
        return false;
    }
    const QImage picture = QImageReader(file).read().convertToFormat(QImage::Format_RGB32);
    return !picture.isNull() && root.show(composed(picture, root.size(), root.monitors()));
}

}  // namespace velorama
