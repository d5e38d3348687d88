#include "imaging/decode/jpeg_file.h"

#include "imaging/decode/decoding.h"

#include <QtGlobal>

#include <algorithm>
#include <vector>

#include <jerror.h>

namespace velorama {
namespace {

/// More scans than any camera or program writes; a file with more only wants to cost time.
constexpr int scanLimit = 200;

/// Pixels of the largest picture, however small it is wanted; the largest cameras give 200 million.
constexpr qint64 pixelLimit = 512LL * 1024 * 1024;

[[noreturn]] void leave(j_common_ptr info) {
    std::longjmp(reinterpret_cast<JpegErrors*>(info->err)->back, 1);
}

void beSilent(j_common_ptr) {}

/// The library walks along all segments that it has kept to add one, so that very many would take
/// it hours. This is more than any file needs, though each of them is at its largest.
constexpr int segmentLimit = 4096;

/// The two that are looked at: EXIF and the pieces of a colour profile.
void keepSegments(j_decompress_ptr info, bool keep) {
    jpeg_save_markers(info, JPEG_APP0 + 1, keep ? 0xFFFF : 0);
    jpeg_save_markers(info, JPEG_APP0 + 2, keep ? 0xFFFF : 0);
}

/// The library tells of each segment when it has read it. What comes behind too many is skipped.
void limitSegments(j_common_ptr info) {
    auto* errors = reinterpret_cast<JpegErrors*>(info->err);
    if (info->err->msg_code == JTRC_MISC_MARKER && ++errors->segments == segmentLimit) {
        keepSegments(reinterpret_cast<j_decompress_ptr>(info), false);
    }
}

/// Reading beyond the end is harmless while what was read before suffices: only the closing marker
/// may be missing. The library makes it up, and says so when a scan then lacks data; it would go on
/// in grey. Arithmetic coding takes such data for zeros without a word.
void watchForEnd(j_common_ptr info, int level) {
    auto* errors = reinterpret_cast<JpegErrors*>(info->err);
    if (level >= 0) {
        limitSegments(info);
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
[[gnu::noinline]] bool attempt(JpegErrors& errors, const Step& step) {
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

}  // namespace

JpegFile::JpegFile(ByteSource& source) : fileBytes_(source.size()), source_(source) {
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
                       info_.src = source_.manager();
                       keepSegments(&info_, true);
                       jpeg_read_header(&info_, TRUE);
                   }) &&
           isPlausible();
}

/// Each block of 64 pixels takes a bit at least. A file with less than a sixteenth of that has lost
/// nearly all of its picture, or never had one and only claims its size. Arithmetic coding has no
/// least size: a whole picture of one colour may take no byte.
bool JpegFile::isPlausible() const {
    const qint64 pixels = qint64(info_.image_width) * info_.image_height;
    const bool holds = info_.arith_code || pixels / 64 <= fileBytes_ * 8 * 16;
    return pixels <= pixelLimit && holds;
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
    if (isInked() || !attempt(errors_, [&] { jpeg_read_icc_profile(&info_, &data, &length); }) ||
        data == nullptr) {
        return {};
    }
    QByteArray profile(reinterpret_cast<const char*>(data), length);
    std::free(data);
    return profiledSpace(std::move(profile), info_.jpeg_color_space == JCS_GRAYSCALE);
}

bool JpegFile::setScale(int eighths) {
    info_.scale_num = static_cast<unsigned>(eighths);
    info_.scale_denom = 8;
    info_.out_color_space = isInked() ? JCS_CMYK : JCS_EXT_BGRA;
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
                reinterpret_cast<QRgb*>(first)[x] = fromInks(inks + size_t{4} * x, ink);
            }
        }
    }
}

}  // namespace velorama
