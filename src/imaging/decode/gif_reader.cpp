#include "imaging/decode/decoding.h"
#include "imaging/decode/gif.h"

namespace velorama {
namespace {

/// The codes of a frame, of changing width, out of the blocks that they are spread over.
class GifCodes {
public:
    GifCodes(QByteArrayView bytes, qsizetype at) : bytes_(bytes), at_(at) {}

    /// The next code; -1 behind the last one.
    int take(int bits);
    /// True if it was the file that ended.
    bool isCutOff() const { return cutOff_; }

private:
    int takeByte();
    bool isBeyond() {
        cutOff_ = at_ >= bytes_.size();
        return cutOff_;
    }

    QByteArrayView bytes_;
    qsizetype at_;
    int leftInBlock_ = 0;
    quint32 held_ = 0;
    int heldBits_ = 0;
    bool cutOff_ = false;
};

int GifCodes::takeByte() {
    if (leftInBlock_ == 0 && !isBeyond()) {
        leftInBlock_ = static_cast<uchar>(bytes_[at_]);
        // The empty block that ends the frame is looked at again by the next call.
        at_ += leftInBlock_ == 0 ? 0 : 1;
    }
    if (leftInBlock_ == 0 || isBeyond()) {
        return -1;
    }
    --leftInBlock_;
    return static_cast<uchar>(bytes_[at_++]);
}

int GifCodes::take(int bits) {
    while (heldBits_ < bits) {
        const int byte = takeByte();
        if (byte < 0) {
            return -1;
        }
        held_ |= static_cast<quint32>(byte) << heldBits_;
        heldBits_ += 8;
    }
    const auto code = static_cast<int>(held_ & ((1U << bits) - 1));
    held_ >>= bits;
    heldBits_ -= bits;
    return code;
}

/// Paints a frame's indices in the order of the file. What is beyond the screen is passed over.
class FramePainter {
public:
    FramePainter(const GifHead& head, QImage& bitmap)
        : head_(head), bitmap_(bitmap), pass_(head.interlaced ? 0 : plain) {
        if (head.frame.isEmpty()) {
            y_ = head.frame.height();
        }
        findRow();
    }

    bool isFull() const { return y_ >= head_.frame.height(); }
    void put(const uchar* first, const uchar* last);

private:
    struct Pass {
        int first;
        int step;
    };
    static constexpr Pass passes[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}, {0, 1}};
    static constexpr int plain = 4;

    void nextRow();
    void findRow();

    const GifHead& head_;
    QImage& bitmap_;
    int pass_;
    int x_ = 0;
    int y_ = 0;
    QRgb* row_ = nullptr;
    int seen_ = 0;
};

/// A pass of a low frame may have no row at all.
void FramePainter::nextRow() {
    x_ = 0;
    y_ += passes[pass_].step;
    while (isFull() && pass_ < plain - 1) {
        y_ = passes[++pass_].first;
    }
    findRow();
}

void FramePainter::findRow() {
    const int y = head_.frame.y() + y_;
    const bool isSeen = !isFull() && y < bitmap_.height() && head_.frame.x() < bitmap_.width();
    seen_ = isSeen ? bitmap_.width() - head_.frame.x() : 0;
    row_ = isSeen ? reinterpret_cast<QRgb*>(bitmap_.scanLine(y)) + head_.frame.x() : nullptr;
}

void FramePainter::put(const uchar* first, const uchar* last) {
    for (; first != last && !isFull(); ++first) {
        if (x_ < seen_) {
            row_[x_] = head_.palette[*first];
        }
        if (++x_ == head_.frame.width()) {
            nextRow();
        }
    }
}

/// The strings that codes stand for: each is an earlier one and an index more.
class GifStrings {
public:
    explicit GifStrings(int bits) : bits_(bits) { clear(); }

    /// False at the end of the frame, and at a code that stands for nothing.
    bool paint(int code, FramePainter& painter);
    int codeWidth() const { return width_; }

private:
    static constexpr int most = 4096;
    static constexpr int widest = 12;

    void clear() {
        width_ = bits_ + 1;
        next_ = clearCode() + 2;
        previous_ = -1;
    }
    int clearCode() const { return 1 << bits_; }
    bool stands(int code) const {
        return code < clearCode() || (previous_ >= 0 && code > clearCode() + 1 && code <= next_);
    }
    void add();

    int bits_;
    int width_ = 0;
    int next_ = 0;
    int previous_ = -1;
    uchar first_ = 0;
    std::array<quint16, most> prefix_{};
    std::array<uchar, most> suffix_{};
    std::array<uchar, most + 1> string_{};
};

/// The previous string and the first index of this one make a new one, until the table is full.
void GifStrings::add() {
    if (previous_ < 0 || next_ == most) {
        return;
    }
    prefix_[static_cast<size_t>(next_)] = static_cast<quint16>(previous_);
    suffix_[static_cast<size_t>(next_)] = first_;
    ++next_;
    // With indices of one bit the first string is already beyond the width.
    if (next_ >= 1 << width_ && width_ < widest) {
        ++width_;
    }
}

bool GifStrings::paint(int code, FramePainter& painter) {
    if (code == clearCode()) {
        clear();
        return true;
    }
    if (!stands(code)) {
        return false;
    }
    uchar* const end = string_.data() + string_.size();
    uchar* start = end;
    int rest = code;
    if (code == next_) {
        *--start = first_;
        rest = previous_;
    }
    for (; rest >= clearCode(); rest = prefix_[static_cast<size_t>(rest)]) {
        *--start = suffix_[static_cast<size_t>(rest)];
    }
    first_ = static_cast<uchar>(rest);
    *--start = first_;
    add();
    previous_ = code;
    painter.put(start, end);
    return true;
}

/// False if the file ends before the frame.
bool paintFrame(QByteArrayView bytes, const GifHead& head, QImage& bitmap) {
    GifCodes codes(bytes, head.codes);
    FramePainter painter(head, bitmap);
    GifStrings strings(head.codeBits);
    bool goesOn = true;
    while (goesOn && !painter.isFull()) {
        const int code = codes.take(strings.codeWidth());
        goesOn = code >= 0 && strings.paint(code, painter);
    }
    return painter.isFull() || !codes.isCutOff();
}

}  // namespace

Picture readGif(QByteArrayView bytes) {
    const GifHead head = gifHead(bytes);
    const qint64 pixels = qint64(head.screen.width()) * head.screen.height();
    const qint64 framePixels = qint64(head.frame.width()) * head.frame.height();
    // A frame beyond all measure would only cost time, as little of it as may be seen.
    if (head.screen.isEmpty() || qMax(pixels, framePixels) > decodingMemory().largest() / 4) {
        return {};
    }
    const MemoryShare share(decodingMemory(), pixels * 4);
    QImage bitmap(head.screen, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(head.ground);
    if (!share || bitmap.isNull() || !paintFrame(bytes, head, bitmap)) {
        return {};
    }
    return {head.screen, asPixels(std::move(bitmap))};
}

}  // namespace velorama
