#pragma once

#include "imaging/decode/jpeg_source.h"

#include <QColorSpace>
#include <QImage>

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace velorama {

/// Errors of the JPEG library jump back to where the step that called it began; its warnings stay
/// silent.
struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf back;
    /// The library has read beyond the end of the file.
    bool pastEnd;
    /// Segments that the library has read and has no use for itself.
    int segments;
};

/// One JPEG, from its head to its pixels. The size is told by what decodes it and by nothing else,
/// so both never disagree.
class JpegFile {
public:
    /// `source` must outlive this.
    explicit JpegFile(ByteSource& source);
    JpegFile(const JpegFile&) = delete;
    JpegFile& operator=(const JpegFile&) = delete;
    ~JpegFile() { jpeg_destroy_decompress(&info_); }

    /// False for what cannot be decoded, as far as the head tells. All else needs a true.
    bool readHeader();
    /// Width and height as they are stored.
    QSize size() const;
    /// EXIF orientation, 1 to 8.
    int orientation() const;
    /// That of a profile which fits the colours; profiles of inks are not applied.
    QColorSpace colourSpace();
    /// Chooses the scale of the decoding; false if the library gives up.
    bool setScale(int eighths);
    /// Chooses the scale, or the next smaller one that memory suffices for: what it chose; 0 if the
    /// library gives up.
    int scaleWithin(int eighths, int bitmaps);
    /// Bytes that decoding takes, with so many bitmaps at a time.
    qint64 memory(int bitmaps);
    /// Null if the library gives up, the file ends too early or memory runs out.
    QImage decoded();

private:
    bool isPlausible() const;
    bool lacksScans() const;
    bool isInked() const {
        return info_.jpeg_color_space == JCS_CMYK || info_.jpeg_color_space == JCS_YCCK;
    }
    void readRows(uchar* pixels, qsizetype stride, uchar* inks);

    const qint64 fileBytes_;
    JpegSource source_;
    jpeg_decompress_struct info_{};
    jpeg_progress_mgr progress_{};
    JpegErrors errors_{};
    bool made_ = false;
};

}  // namespace velorama
