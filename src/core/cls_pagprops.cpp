#include "core/cls_pagprops.h"

#include "core/globals.h"
#include "platform/files/paths.h"

#include <QFile>

#include <algorithm>
#include <initializer_list>

namespace velorama {
namespace {

constexpr int headSize = 965536;     // bytes of a file that are looked at
constexpr int searchLimit = 965525;  // positions from here on are no start of a JPEG marker

/// The head of a file, read block by block as far as it is asked for: a picture's size mostly
/// stands in the first few thousand bytes. Bytes behind the end of the file are 0.
class FileHead {
public:
    explicit FileHead(const QString& path) : file_(path) { file_.open(QIODevice::ReadOnly); }

    qint32 byte(int at) {
        if (at >= bytes_.size() && !ended_) {
            readTo(at);
        }
        return at < bytes_.size() ? static_cast<quint8>(bytes_[at]) : 0;
    }

    /// Last byte first, as on Intel machines.
    qint32 littleWord(int at) { return byte(at) + 256 * byte(at + 1); }
    qint32 bigWord(int at) { return byte(at + 1) + 256 * byte(at); }

    bool startsWith(std::initializer_list<qint32> start) { return matches(0, start); }
    bool matches(int at, std::initializer_list<qint32> wanted) {
        return std::all_of(wanted.begin(), wanted.end(),
                           [this, at](qint32 one) mutable { return byte(at++) == one; });
    }
    /// True if only zeros stand at `at` and behind it.
    bool isBehindEnd(int at) {
        byte(at);
        return at >= bytes_.size();
    }

private:
    void readTo(int at) {
        constexpr int blockSize = 65536;
        const int wanted = std::min(headSize, (at / blockSize + 1) * blockSize);
        bytes_ += file_.read(wanted - bytes_.size());
        ended_ = bytes_.size() < wanted || wanted == headSize;
    }

    QFile file_;
    QByteArray bytes_;
    bool ended_ = false;
};

/// Bits a pixel of a PNG by its colour type; -1 for a type that does not exist.
qint32 pngDepth(qint32 colourType, qint32 sampleDepth) {
    switch (colourType) {
        case 0:
            return sampleDepth;
        case 2:
            return sampleDepth * 3;
        case 3:
            return 8;
        case 4:
            return sampleDepth * 2;
        case 6:
            return sampleDepth * 4;
        default:
            return -1;
    }
}

bool isFrameHeader(qint32 marker) {
    return marker >= 192 && marker <= 207 && marker != 196 && marker != 200 && marker != 204;
}

/// Position of the first marker behind the start of a JPEG, or -1.
int findJpegStart(FileHead& head) {
    int at = 0;
    while (at < searchLimit && !head.matches(at, {255, 216, 255})) {
        if (head.isBehindEnd(at)) {
            return -1;
        }
        ++at;
    }
    at += 2;
    return at < searchLimit ? at : -1;
}

/// Position of the marker of the frame header, or -1. Goes from segment to segment.
int findFrameHeader(FileHead& head, int at) {
    while (at < searchLimit && !head.isBehindEnd(at)) {
        if (head.byte(at) != 255 || head.byte(at + 1) == 255) {
            ++at;
            continue;
        }
        ++at;
        if (isFrameHeader(head.byte(at))) {
            return at;
        }
        at += head.bigWord(at + 1);
    }
    return -1;
}

}  // namespace

void clsPAGPROPS::PictureFileInformation(const QString& Path) {
    *this = clsPAGPROPS();
    if (Path.isEmpty() || !gFileFoldr->FileExists(Path)) {
        return;
    }
    FileHead head(hostFile(Path));
    if (head.startsWith({137, 'P', 'N'})) {
        const qint32 bits = pngDepth(head.byte(25), head.byte(24));
        if (bits >= 0) {
            *this = found(Png, bits, head.bigWord(18), head.bigWord(22));
            return;
        }
    }
    if (head.startsWith({'G', 'I', 'F'})) {
        *this = found(Gif, (head.byte(10) & 7) + 1, head.littleWord(6), head.littleWord(8));
    } else if (head.startsWith({'B', 'M'})) {
        *this = found(Bmp, head.byte(28), head.littleWord(18), head.littleWord(22));
    } else {
        const int start = findJpegStart(head);
        const int at = start < 0 ? -1 : findFrameHeader(head, start);
        if (at >= 0) {
            *this = found(Jpeg, head.byte(at + 8) * 8, head.bigWord(at + 6), head.bigWord(at + 4));
        }
    }
}

clsPAGPROPS clsPAGPROPS::found(Kind kind, qint32 depth, qint32 width, qint32 height) {
    clsPAGPROPS picture;
    picture.PictureKind = kind;
    picture.PictureDepth = depth;
    picture.PictureWidth = width;
    picture.PictureHeight = height;
    return picture;
}

}  // namespace velorama
