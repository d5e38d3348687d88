#include "imaging/decode/bmp.h"
#include "imaging/decode/byte_numbers.h"

#include <algorithm>

namespace velorama {
namespace {

/// What a code of no pixels means; from three on it tells how many are written out.
enum Escape : int { EndOfRow, EndOfBitmap, Move };

class RunPainter {
public:
    RunPainter(QByteArrayView runs, const BmpHead& head, const BmpPalette& palette, QImage& bitmap)
        : runs_(runs),
          palette_(palette),
          depth_(head.depth),
          width_(head.size.width()),
          height_(head.size.height()),
          stride_(head.fromTop ? bitmap.bytesPerLine() : -bitmap.bytesPerLine()),
          firstRow_(bitmap.bits() + (head.fromTop ? 0 : (height_ - 1) * bitmap.bytesPerLine())) {}

    void paint();

private:
    int takeByte() { return numberAt<quint8>(runs_, at_++); }
    /// The colour so many pixels behind the place where reading is.
    QRgb colour(int index) const;
    void repeat(int count);
    void copy(int count);
    /// False at the end of the bitmap.
    bool escape(int code);
    /// Pixels of the next `count` that are within the row.
    int visible(int count) const { return std::min(count, width_ - x_); }
    QRgb* place() const { return reinterpret_cast<QRgb*>(firstRow_ + y_ * stride_) + x_; }

    QByteArrayView runs_;
    const BmpPalette& palette_;
    const int depth_;
    const int width_;
    const qint64 height_;
    const qint64 stride_;
    uchar* const firstRow_;
    qsizetype at_ = 0;
    int x_ = 0;
    qint64 y_ = 0;
};

QRgb RunPainter::colour(int index) const {
    if (depth_ == 24) {
        const qsizetype at = at_ + qsizetype(index) * 3;
        return qRgb(numberAt<quint8>(runs_, at + 2), numberAt<quint8>(runs_, at + 1),
                    numberAt<quint8>(runs_, at));
    }
    if (depth_ == 8) {
        return palette_[numberAt<quint8>(runs_, at_ + index)];
    }
    const int two = numberAt<quint8>(runs_, at_ + index / 2);
    return palette_[static_cast<size_t>(index % 2 == 0 ? two >> 4 : two & 0x0F)];
}

/// A run of half bytes takes turns between two colours.
void RunPainter::repeat(int count) {
    const QRgb colours[] = {colour(0), colour(depth_ == 4 ? 1 : 0)};
    QRgb* pixels = place();
    const int seen = visible(count);
    for (int i = 0; i < seen; ++i) {
        pixels[i] = colours[i % 2];
    }
    x_ += seen;
    at_ += depth_ == 24 ? 3 : 1;
}

/// What is written out is filled up to an even number of bytes.
void RunPainter::copy(int count) {
    const qsizetype there = (runs_.size() - at_) * 8 / depth_;
    QRgb* pixels = place();
    const int seen = static_cast<int>(std::min<qsizetype>(visible(count), there));
    for (int i = 0; i < seen; ++i) {
        pixels[i] = colour(i);
    }
    x_ += seen;
    at_ += (qsizetype(count) * depth_ + 15) / 16 * 2;
}

bool RunPainter::escape(int code) {
    if (code == EndOfRow) {
        x_ = 0;
        ++y_;
    } else if (code == Move) {
        x_ = std::min(x_ + takeByte(), width_);
        y_ += takeByte();
    } else if (code != EndOfBitmap) {
        copy(code);
    }
    return code != EndOfBitmap;
}

void RunPainter::paint() {
    bool goesOn = true;
    while (goesOn && y_ < height_ && at_ + 2 <= runs_.size()) {
        const int count = takeByte();
        if (count == 0) {
            goesOn = escape(takeByte());
        } else {
            repeat(count);
        }
    }
}

}  // namespace

void paintBmpRuns(QByteArrayView runs, const BmpHead& head, const BmpPalette& palette,
                  QImage& bitmap) {
    RunPainter(runs, head, palette, bitmap).paint();
}

}  // namespace velorama
