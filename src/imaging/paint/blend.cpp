#include "imaging/paint/blend.h"

#include "imaging/paint/blend_row.h"
#include "imaging/pixels/bands.h"

#include <algorithm>
#include <numeric>

namespace velorama {
namespace {

/// From this many bytes on rows are worth waking a second thread for.
constexpr qint64 worthAThread = 1024LL * 1024;
/// Rows that stay between two that change are painted with them: each rectangle of its own costs
/// the painter and the X server more than some rows.
constexpr int paintedGap = 32;
/// What difference times alpha must reach, for the rounding to give 1 of 255.
constexpr int leastMove = 128;

QRgb alwaysSet(const QImage& target) {
    return target.format() == QImage::Format_RGB32 ? 0xFF000000U : 0;
}

const QRgb* rowOf(const QImage& image, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

void inBandsIfMany(int rows, int width, const std::function<void(int, int)>& work) {
    if (qint64(rows) * width * 4 < worthAThread) {
        work(0, rows);
    } else {
        inBands(rows, work);
    }
}

/// Where others share the target's pixels, copying them first would read and write them once more
/// than blending into new ones does.
QImage freshTarget(const QImage& target, QSize covered) {
    const bool shared = !target.isDetached() && covered == target.size();
    QImage fresh = shared ? QImage(target.size(), target.format()) : QImage();
    if (!fresh.isNull()) {
        fresh.setDevicePixelRatio(target.devicePixelRatio());
    }
    return fresh;
}

std::vector<int> allRows(int count) {
    std::vector<int> rows(static_cast<size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

QRegion bandsOf(const std::vector<int>& rows, int width) {
    QRegion bands;
    for (size_t i = 0; i < rows.size();) {
        const int first = rows[i];
        int last = first;
        for (; i < rows.size() && rows[i] - last <= paintedGap; ++i) {
            last = rows[i];
        }
        bands += QRect(0, first, width, last - first + 1);
    }
    return bands;
}

}  // namespace

QRegion CumulativeBlend::AlphaBlend(QImage& target, const QImage& source, int alpha) {
    if (target.depth() != 32 || source.depth() != 32 || alpha < 0 || alpha > 255) {
        return {};
    }
    const QSize shared = target.size().boundedTo(source.size());
    if (target.cacheKey() != target_ || source.cacheKey() != source_) {
        look(target, source, shared);
    }
    const std::vector<int> rows = rowsThatMove(alpha);
    if (rows.empty() || !blendRows(rows, target, source, shared.width(), alpha)) {
        return {};
    }
    return bandsOf(rows, shared.width());
}

void CumulativeBlend::look(const QImage& target, const QImage& source, QSize shared) {
    apart_.assign(static_cast<size_t>(shared.height()), 0);
    inBandsIfMany(shared.height(), shared.width(), [&](int first, int end) {
        for (int y = first; y < end; ++y) {
            apart_[y] = static_cast<uchar>(largestDifference(rowOf(target, y), rowOf(source, y),
                                                             shared.width(), ~alwaysSet(target)));
        }
    });
    target_ = target.cacheKey();
    source_ = source.cacheKey();
}

std::vector<int> CumulativeBlend::rowsThatMove(int alpha) const {
    std::vector<int> rows;
    for (size_t y = 0; y < apart_.size(); ++y) {
        if (apart_[y] * alpha >= leastMove) {
            rows.push_back(static_cast<int>(y));
        }
    }
    return rows;
}

/// False: there was no memory for a copy of shared pixels.
bool CumulativeBlend::blendRows(const std::vector<int>& rows, QImage& target, const QImage& source,
                                int width, int alpha) {
    QImage fresh = freshTarget(target, {width, static_cast<int>(apart_.size())});
    const std::vector<int> visited = fresh.isNull() ? rows : allRows(target.height());
    QImage& out = fresh.isNull() ? target : fresh;
    uchar* const pixels = out.bits();
    if (pixels == nullptr) {
        return false;
    }
    const qsizetype stride = out.bytesPerLine();
    const QRgb always = alwaysSet(target);
    const QImage& below = target;
    inBandsIfMany(static_cast<int>(visited.size()), width, [&](int first, int end) {
        for (int i = first; i < end; ++i) {
            const int y = visited[i];
            const BlendedRow row{reinterpret_cast<QRgb*>(pixels + y * stride), rowOf(below, y),
                                 rowOf(source, y), width, always};
            blendRow(row, static_cast<quint32>(alpha));
            apart_[y] = static_cast<uchar>(largestDifference(row.out, row.above, width, ~always));
        }
    });
    if (!fresh.isNull()) {
        target = std::move(fresh);
    }
    target_ = target.cacheKey();
    return true;
}

}  // namespace velorama
