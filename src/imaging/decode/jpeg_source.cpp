#include "imaging/decode/jpeg_source.h"

#include <jerror.h>

namespace velorama {

JpegSource::JpegSource(ByteSource& bytes) : bytes_(bytes) {
    shared_.self = this;
    shared_.manager.init_source = [](j_decompress_ptr) {};
    shared_.manager.fill_input_buffer = fill;
    shared_.manager.skip_input_data = skip;
    shared_.manager.resync_to_restart = jpeg_resync_to_restart;
    shared_.manager.term_source = [](j_decompress_ptr) {};
}

JpegSource& JpegSource::of(j_decompress_ptr info) {
    return *reinterpret_cast<Shared*>(info->src)->self;
}

boolean JpegSource::fill(j_decompress_ptr info) {
    static constexpr JOCTET closing[] = {0xFF, JPEG_EOI};
    JpegSource& source = of(info);
    const QByteArrayView bytes = source.bytes_.from(source.next_);
    source.next_ += bytes.size();
    if (bytes.isEmpty()) {
        WARNMS(info, JWRN_JPEG_EOF);
        info->src->next_input_byte = closing;
        info->src->bytes_in_buffer = sizeof(closing);
    } else {
        info->src->next_input_byte = reinterpret_cast<const JOCTET*>(bytes.data());
        info->src->bytes_in_buffer = static_cast<size_t>(bytes.size());
    }
    return TRUE;
}

void JpegSource::skip(j_decompress_ptr info, long count) {
    jpeg_source_mgr& manager = *info->src;
    const long there = static_cast<long>(manager.bytes_in_buffer);
    if (count <= 0) {
        return;
    }
    if (count > there) {
        of(info).next_ += count - there;
    }
    const long taken = qMin(count, there);
    manager.next_input_byte += taken;
    manager.bytes_in_buffer -= static_cast<size_t>(taken);
}

}  // namespace velorama
