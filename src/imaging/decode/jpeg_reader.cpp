#include "imaging/decode/decoding.h"

#include <QtGlobal>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

namespace velorama {
namespace {

/// More scans than any camera or program writes; a file with more only wants to cost time.
constexpr int scanLimit = 200;

/// Pixels of the largest picture, however small it is wanted; the largest cameras give 200 million.
constexpr qint64 pixelLimit = 512LL * 1024 * 1024;

/// Errors of the library jump back to where `attempt` was called; its warnings stay silent.
struct ErrorExit {
    jpeg_error_mgr manager;
    std::jmp_buf back;
    /// The library has read beyond the end of the file.
    bool pastEnd;
};

[[noreturn]] void leave(j_common_ptr info) {
    std::longjmp(reinterpret_cast<ErrorExit*>(info->err)->back, 1);
}

void beSilent(j_common_ptr) {}

/// Reading beyond the end is harmless while what was read before suffices: only the closing marker
/// may be missing. The library makes it up, and says so when a scan then lacks data; it would go on
/// in grey. Arithmetic coding takes such data for zeros without a word.
void watchForEnd(j_common_ptr info, int level) {
    auto* errors = reinterpret_cast<ErrorExit*>(info->err);
    if (level >= 0) {
        return;  // no warning
    }
    ++info->err->num_warnings;
    errors->pastEnd = errors->pastEnd || info->err->msg_code == JWRN_JPEG_EOF;
    const bool lacksData = info->err->msg_code == JWRN_HIT_MARKER ||
                           reinterpret_cast<j_decompress_ptr>(info)->arith_code;
    if (errors->pastEnd && lacksData) {
        leave(info);
    }
}

void limitScans(j_common_ptr info) {
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > scanLimit) {
        leave(info);
    }
}

/// Runs a step that calls the library; false if the library gave up. The step must not own
/// anything.
template <typename Step>
[[gnu::noinline]] bool attempt(ErrorExit& errors, const Step& step) {
    if (setjmp(errors.back) != 0) {
        return false;
    }
    step();
    return true;
}

/// A product of two channels over 255, rounded.
uchar product(int a, int b) {
    const int t = a * b + 128;
    return static_cast<uchar>((t + (t >> 8)) >> 8);
}

/// Four inks to a pixel; `ink` is 0 where bytes mean light, 255 where they mean ink.
QRgb fromInks(const uchar* inks, int ink) {
    const int key = inks[3] ^ ink;
    return qRgb(product(inks[0] ^ ink, key), product(inks[1] ^ ink, key),
                product(inks[2] ^ ink, key));
}

class JpegFile {
public:
    explicit JpegFile(QByteArrayView bytes);
    JpegFile(const JpegFile&) = delete;
    JpegFile& operator=(const JpegFile&) = delete;
    ~JpegFile() { jpeg_destroy_decompress(&info_); }

    bool readHeader();
    QSize size() const;
    int orientation() const;
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
    bool isInked() const { return info_.out_color_space == JCS_CMYK; }
    void readRows(uchar* pixels, qsizetype stride, uchar* inks);

    QByteArrayView bytes_;
    jpeg_decompress_struct info_{};
    jpeg_progress_mgr progress_{};
    ErrorExit errors_{};
    bool made_ = false;
};

JpegFile::JpegFile(QByteArrayView bytes) : bytes_(bytes) {
    info_.err = jpeg_std_error(&errors_.manager);
    errors_.manager.error_exit = leave;
    errors_.manager.output_message = beSilent;
    errors_.manager.emit_message = watchForEnd;
    progress_.progress_monitor = limitScans;
    made_ = attempt(errors_, [this] { jpeg_create_decompress(&info_); });
}

bool JpegFile::readHeader() {
    return made_ &&
           attempt(errors_,
                   [this] {
                       info_.progress = &progress_;
                       jpeg_mem_src(&info_, reinterpret_cast<const uchar*>(bytes_.data()),
                                    static_cast<unsigned long>(bytes_.size()));
                       jpeg_save_markers(&info_, JPEG_APP0 + 1, 0xFFFF);
                       jpeg_save_markers(&info_, JPEG_APP0 + 2, 0xFFFF);
                       jpeg_read_header(&info_, TRUE);
                   }) &&
           isPlausible();
}

/// Each block of 64 pixels takes a bit at least. A file with less than a sixteenth of that has lost
/// nearly all of its picture, or never had one and only claims its size.
bool JpegFile::isPlausible() const {
    const qint64 pixels = qint64(info_.image_width) * info_.image_height;
    return pixels <= pixelLimit && pixels / 64 <= bytes_.size() * 8 * 16;
}

QSize JpegFile::size() const {
    return {static_cast<int>(info_.image_width), static_cast<int>(info_.image_height)};
}

int JpegFile::orientation() const {
    for (auto marker = info_.marker_list; marker != nullptr; marker = marker->next) {
        if (marker->marker == JPEG_APP0 + 1) {
            const int found = exifOrientation(QByteArrayView(marker->data, marker->data_length));
            if (found != 0) {
                return found;
            }
        }
    }
    return 1;
}

QColorSpace JpegFile::colourSpace() {
    JOCTET* data = nullptr;
    unsigned int length = 0;
    if (!attempt(errors_, [&] { jpeg_read_icc_profile(&info_, &data, &length); }) ||
        data == nullptr) {
        return {};
    }
    const QByteArray profile(reinterpret_cast<const char*>(data), length);
    std::free(data);
    // Only profiles of three colours say something about the pixels this reader gives.
    const bool isRgb = QByteArrayView(profile).sliced(0, qMin(20, profile.size())).endsWith("RGB ");
    return isRgb ? QColorSpace::fromIccProfile(profile) : QColorSpace();
}

bool JpegFile::setScale(int eighths) {
    const bool inked = info_.jpeg_color_space == JCS_CMYK || info_.jpeg_color_space == JCS_YCCK;
    info_.scale_num = static_cast<unsigned>(eighths);
    info_.scale_denom = 8;
    info_.out_color_space = inked ? JCS_CMYK : JCS_EXT_BGRA;
    info_.dct_method = JDCT_ISLOW;
    return attempt(errors_, [this] { jpeg_calc_output_dimensions(&info_); });
}

qint64 JpegFile::memory(int bitmaps) {
    // Strips of a few rows for each colour.
    constexpr qint64 workingRows = 256;
    qint64 bytes = bitmaps * qint64(info_.output_width) * info_.output_height * 4 +
                   workingRows * info_.image_width;
    if (jpeg_has_multiple_scans(&info_)) {
        for (int i = 0; i < info_.num_components; ++i) {
            // Every scan adds to the same coefficients; sides are filled up to whole groups.
            const jpeg_component_info& colour = info_.comp_info[i];
            bytes += qint64(sizeof(JBLOCK)) * (colour.width_in_blocks + colour.h_samp_factor) *
                     (colour.height_in_blocks + colour.v_samp_factor);
        }
    }
    return bytes;
}

int JpegFile::scaleWithin(int eighths, int bitmaps) {
    while (setScale(eighths)) {
        if (eighths == 1 || memory(bitmaps) <= decodingMemory().largest()) {
            return eighths;
        }
        eighths /= 2;
    }
    return 0;
}

QImage JpegFile::decoded() {
    QImage bitmap(static_cast<int>(info_.output_width), static_cast<int>(info_.output_height),
                  QImage::Format_RGB32);
    if (bitmap.isNull()) {
        return {};
    }
    std::vector<uchar> inks(isInked() ? static_cast<size_t>(bitmap.bytesPerLine()) : 0);
    uchar* pixels = bitmap.bits();
    const bool done = attempt(errors_, [&] {
        jpeg_start_decompress(&info_);
        if (lacksScans()) {
            leave(reinterpret_cast<j_common_ptr>(&info_));
        }
        readRows(pixels, bitmap.bytesPerLine(), inks.data());
        // Not finished on purpose: what follows the last row is of no use.
    });
    return done ? bitmap : QImage();
}

/// True if the file ended between two scans, a colour or a refinement still to come.
bool JpegFile::lacksScans() const {
    if (!errors_.pastEnd) {
        return false;
    }
    for (int i = 0; i < info_.num_components; ++i) {
        const auto isOpen = [](int bit) { return bit != 0; };
        if (info_.comp_info[i].quant_table == nullptr ||
            (info_.coef_bits != nullptr &&
             std::any_of(info_.coef_bits[i], info_.coef_bits[i] + DCTSIZE2, isOpen))) {
            return true;
        }
    }
    return false;
}

void JpegFile::readRows(uchar* pixels, qsizetype stride, uchar* inks) {
    constexpr JDIMENSION rowsAtOnce = 8;
    while (info_.output_scanline < info_.output_height) {
        uchar* first = pixels + qsizetype(info_.output_scanline) * stride;
        if (!isInked()) {
            JSAMPROW rows[rowsAtOnce];
            const JDIMENSION count = qMin(rowsAtOnce, info_.output_height - info_.output_scanline);
            for (JDIMENSION i = 0; i < count; ++i) {
                rows[i] = first + qsizetype(i) * stride;
            }
            jpeg_read_scanlines(&info_, rows, count);
        } else {
            jpeg_read_scanlines(&info_, &inks, 1);
            const int ink = info_.saw_Adobe_marker ? 0 : 255;
            for (JDIMENSION x = 0; x < info_.output_width; ++x) {
                reinterpret_cast<QRgb*>(first)[x] = fromInks(inks + 4 * x, ink);
            }
        }
    }
}

/// A reduced bitmap has whole pixels; the incomplete ones stand at the right and at the bottom of
/// the bitmap as it was stored.
QRectF exactExtent(QSize bitmap, QSizeF exact, int orientation) {
    const bool fromRight =
        orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
    const bool fromBottom =
        orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
    return {fromRight ? bitmap.width() - exact.width() : 0,
            fromBottom ? bitmap.height() - exact.height() : 0, exact.width(), exact.height()};
}

}  // namespace

int jpegEighths(QSize size, const Fit& fit) {
    // Below this the last, incomplete block of a side shows, and there is little to win.
    constexpr qint64 smallPicture = 512 * 512;
    if (fit.kind == Fit::Kind::Whole || qint64(size.width()) * size.height() <= smallPicture) {
        return 8;
    }
    const QSizeF wanted = fit.kind == Fit::Kind::Cell ? cellSize(size, fit.box.width())
                                                      : QSizeF(fittedRect(size, fit.box).size());
    const double needed = qMax(wanted.width() / size.width(), wanted.height() / size.height());
    // The scales between, 3/8 and the like, take longer than a full decode.
    for (const int eighths : {1, 2, 4}) {
        if (eighths >= needed * 8) {
            return eighths;
        }
    }
    return 8;
}

bool decodesAlike(QSize size, const Fit& one, const Fit& other) {
    return jpegEighths(size, one) == jpegEighths(size, other);
}

Picture readJpeg(QByteArrayView bytes, const Fit& fit) {
    JpegFile file(bytes);
    if (!file.readHeader()) {
        return {};
    }
    const int orientation = file.orientation();
    const QSize shown = orientation >= 5 ? file.size().transposed() : file.size();
    const QColorSpace space = file.colourSpace();
    const int bitmaps = orientation > 1 ? 2 : 1;
    const int eighths = file.scaleWithin(jpegEighths(shown, fit), bitmaps);
    if (eighths == 0) {
        return {};
    }
    const MemoryShare share(decodingMemory(), file.memory(bitmaps));
    QImage bitmap = share ? file.decoded() : QImage();
    convertToSrgb(bitmap, space);
    const QSizeF exact = QSizeF(shown) * eighths / 8;
    bitmap = oriented(std::move(bitmap), orientation);
    if (bitmap.isNull()) {
        return {};
    }
    return {shown, bitmap, exactExtent(bitmap.size(), exact, orientation)};
}

}  // namespace velorama
