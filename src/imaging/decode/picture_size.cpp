#include "imaging/decode/picture_size.h"

#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/decoding.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace velorama {
namespace {

/// Segments that a JPEG is followed through; a file with more only wants to cost time.
constexpr int segmentLimit = 10000;
/// Bytes between two segments that belong to neither.
constexpr int strayLimit = 65536;

enum Marker : int { App1 = 0xE1, StartOfImage = 0xD8, EndOfImage = 0xD9, StartOfScan = 0xDA };

/// A file read in blocks as it is asked for; outside everything is 0 or empty.
class FileBlocks {
public:
    explicit FileBlocks(const QString& path) : file_(path) {
        if (file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            size_ = file_.size();
            block_ = file_.read(blockSize);
        }
    }

    QByteArray read(qint64 at, qint64 count) {
        return file_.isOpen() && file_.seek(at) ? file_.read(count) : QByteArray();
    }
    /// Before any other is asked for: the first bytes, at most a block.
    QByteArray head(qint64 count) const { return block_.left(count); }
    int byte(qint64 at) {
        if (at < start_ || at >= start_ + block_.size()) {
            start_ = at;
            block_ = read(at, blockSize);
        }
        return block_.isEmpty() ? 0 : static_cast<uchar>(block_.at(at - start_));
    }
    qint64 size() const { return size_; }
    int word(qint64 at) { return byte(at) * 256 + byte(at + 1); }

private:
    static constexpr qint64 blockSize = 4096;

    QFile file_;
    qint64 size_ = 0;
    qint64 start_ = 0;
    QByteArray block_;
};

/// The next marker from `at` on, which moves behind it; 0 if there is none.
int nextMarker(FileBlocks& file, qint64& at) {
    const qint64 limit = std::min(at + strayLimit, file.size());
    while (at < limit) {
        const bool begins = file.byte(at) == 0xFF;
        const int marker = begins ? file.byte(at + 1) : 0;
        if (begins && marker != 0 && marker != 0xFF) {
            at += 2;
            return marker;
        }
        ++at;
    }
    return 0;
}

/// Frames of the two codings that readers know: one pass or several, Huffman or arithmetic.
bool isFrame(int marker) {
    return (marker >= 0xC0 && marker <= 0xC2) || marker == 0xC9 || marker == 0xCA;
}

bool standsAlone(int marker) {
    constexpr int temporary = 0x01;
    return marker == temporary || (marker >= 0xD0 && marker <= 0xD7);
}

/// Null for samples that are not of eight bits.
QSize frameSize(FileBlocks& file, qint64 segment) {
    return file.byte(segment + 2) == 8 ? QSize(file.word(segment + 5), file.word(segment + 3))
                                       : QSize();
}

QSize jpegSize(FileBlocks& file) {
    QSize size;
    int orientation = 0;
    qint64 at = 2;
    for (int i = 0; i < segmentLimit; ++i) {
        const int marker = nextMarker(file, at);
        if (standsAlone(marker)) {
            continue;
        }
        const int length = file.word(at);
        if (marker == StartOfScan) {
            return orientation >= 5 ? size.transposed() : size;
        }
        if (marker == 0 || marker == StartOfImage || marker == EndOfImage || length < 2) {
            return {};
        }
        if (isFrame(marker)) {
            size = frameSize(file, at);
        } else if (marker == App1 && orientation == 0) {
            orientation = exifOrientation(file.read(at + 2, length - 2));
        }
        at += length;
    }
    return {};
}

}  // namespace

QSize PictureFileSize(const QString& path) {
    const QString file = hostFile(path);
    if (!QFileInfo(file).isFile()) {
        return {};
    }
    constexpr qint64 headSize = 64;
    FileBlocks blocks(file);
    const QByteArray head = blocks.head(headSize);
    const QSize size = head.startsWith("\xFF\xD8") ? jpegSize(blocks) : headSizeOf(head);
    return size.isEmpty() ? QSize() : size;
}

}  // namespace velorama
