#pragma once

#include <QImage>
#include <QRegion>

#include <vector>

namespace velorama {

/// Blends one bitmap over another again and again, each time onto the result of the time before,
/// and spares what a blend would leave as it is: the row in which no channel differs by enough.
///
/// A channel that is k from the source's moves by round(k * alpha / 255), so it moves if
/// k * alpha is 128 or more, and never beyond the source's. Of each row the largest k is kept, for
/// as long as nobody else touches either bitmap.
class CumulativeBlend {
public:
    /// Blends `source` over `target` with one constant alpha, 0 to 255, over the area both share
    /// from their top left corners. Each channel becomes
    /// round((s * alpha + d * (255 - alpha)) / 255). Both in 32 bits a pixel; anything else is left
    /// alone.
    ///
    /// Returns bands of rows in the target's pixels that hold all that changed, over the whole
    /// shared width, and few enough to be painted one by one; empty if nothing changed.
    QRegion AlphaBlend(QImage& target, const QImage& source, int alpha);

private:
    void look(const QImage& target, const QImage& source, QSize shared);
    std::vector<int> rowsThatMove(int alpha) const;
    bool blendRows(const std::vector<int>& rows, QImage& target, const QImage& source, int width,
                   int alpha);

    /// Of each row the largest difference of a channel.
    std::vector<uchar> apart_;
    /// Keys of the bitmaps that this is of.
    qint64 target_ = 0;
    qint64 source_ = 0;
};

}  // namespace velorama
