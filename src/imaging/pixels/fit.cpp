#include "imaging/pixels/fit.h"

#include "platform/numbers.h"

#include <algorithm>

namespace velorama {
namespace {

int rounded(double value) {
    return static_cast<int>(roundHalfEven(value));
}

}  // namespace

QSizeF cellSize(QSize picture, int cell) {
    if (picture.isEmpty()) {
        return {};
    }
    const double width = picture.width();
    const double height = picture.height();
    return height <= width ? QSizeF(cell, cell * (height / width))
                           : QSizeF(cell * (width / height), cell);
}

QSize fitTarget(QSize picture, const Fit& fit) {
    if (fit.kind == Fit::Kind::Area) {
        return fit.box;
    }
    if (fit.kind == Fit::Kind::Whole || picture.isEmpty()) {
        return picture;
    }
    const QSizeF size = cellSize(picture, fit.box.width());
    return QSize(rounded(size.width()), rounded(size.height())).expandedTo({1, 1});
}

QRect fittedRect(QSizeF picture, QSize target) {
    if (picture.isEmpty() || target.isEmpty()) {
        return {};
    }
    const double ratio = picture.width() / picture.height();
    const bool fillsWidth = double(target.width()) / target.height() < ratio;
    const int width = fillsWidth ? target.width() : rounded(target.height() * ratio);
    const int height = fillsWidth ? rounded(target.width() / ratio) : target.height();
    return {rounded((target.width() - width) * 0.5), rounded((target.height() - height) * 0.5),
            width, height};
}

}  // namespace velorama
