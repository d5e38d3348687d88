#pragma once

#include "imaging/decode/byte_source.h"

#include <cstdio>

#include <jpeglib.h>

namespace velorama {

/// What the JPEG library reads from. Behind the last byte it is given closing markers, with its own
/// warning JWRN_JPEG_EOF, as by its own sources. A part that it skips is not read.
class JpegSource {
public:
    explicit JpegSource(ByteSource& bytes);
    JpegSource(const JpegSource&) = delete;
    JpegSource& operator=(const JpegSource&) = delete;

    jpeg_source_mgr* manager() { return &shared_.manager; }

private:
    /// What the library hands back, and how we find ourselves again.
    struct Shared {
        jpeg_source_mgr manager;
        JpegSource* self;
    };
    static JpegSource& of(j_decompress_ptr info);
    static boolean fill(j_decompress_ptr info);
    static void skip(j_decompress_ptr info, long count);

    ByteSource& bytes_;
    /// Place of the byte behind those that the library has been given.
    qint64 next_ = 0;
    Shared shared_{};
};

}  // namespace velorama
