#include "peers.h"

#include "stopwatch.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <csetjmp>
#include <cstdio>
#include <thread>

#include <jpeglib.h>

namespace velorama::bench {
namespace {

struct ErrorExit : jpeg_error_mgr {
    std::jmp_buf back;
};

[[noreturn]] void leave(j_common_ptr info) {
    std::longjmp(static_cast<ErrorExit*>(info->err)->back, 1);
}

/// Decodes at an eighth of the size into `pixels`. Objects with destructors stay with the caller: a
/// damaged file leaves by a jump.
bool decode(jpeg_decompress_struct& info, const QByteArray& bytes, std::vector<JSAMPLE>& pixels) {
    jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(bytes.constData()),
                 static_cast<unsigned long>(bytes.size()));
    jpeg_read_header(&info, TRUE);
    info.scale_num = 1;
    info.scale_denom = 8;
    jpeg_start_decompress(&info);
    const size_t line = size_t{info.output_width} * static_cast<size_t>(info.output_components);
    pixels.resize(line * info.output_height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = pixels.data() + line * info.output_scanline;
        jpeg_read_scanlines(&info, &row, 1);
    }
    return jpeg_finish_decompress(&info) != FALSE;
}

bool decodeFile(const QString& path, std::vector<JSAMPLE>& pixels) {
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    jpeg_decompress_struct info{};
    ErrorExit error{};
    info.err = jpeg_std_error(&error);
    error.error_exit = leave;
    if (setjmp(error.back) != 0) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    jpeg_create_decompress(&info);
    const bool done = decode(info, bytes, pixels);
    jpeg_destroy_decompress(&info);
    return done;
}

}  // namespace

Measure jpegEighths(const QStringList& files) {
    return [files]() -> std::optional<double> {
        std::atomic<qsizetype> next = 0;
        std::atomic<bool> allDone = true;
        const auto work = [&] {
            std::vector<JSAMPLE> pixels;
            for (qsizetype i = next++; i < files.size(); i = next++) {
                if (!decodeFile(files[i], pixels)) {
                    allDone = false;
                }
            }
        };
        const Stopwatch watch;
        {
            std::vector<std::jthread> threads;
            for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
                threads.emplace_back(work);
            }
        }
        return allDone ? std::optional(watch.milliseconds()) : std::nullopt;
    };
}

}  // namespace velorama::bench
