#include "render/picture/jpeg_source.h"

#include <jerror.h>

#include <algorithm>

namespace mosslantern {

JpegSource::JpegSource(QIODevice &device)
    : jpeg_source_mgr{}
    , m_device(device)
{
    init_source = [](j_decompress_ptr) {};
    fill_input_buffer = &JpegSource::fill;
    skip_input_data = &JpegSource::skip;
    resync_to_restart = jpeg_resync_to_restart;
    term_source = [](j_decompress_ptr) {};
}

boolean JpegSource::fill(j_decompress_ptr codec)
{
    JpegSource &source = of(codec);
    const qint64 count = source.m_device.read(reinterpret_cast<char *>(source.m_buffer.data()),
                                              qint64(source.m_buffer.size()));
    source.next_input_byte = source.m_buffer.data();
    if (count > 0) {
        source.bytes_in_buffer = size_t(count);
        return TRUE;
    }
    source.m_buffer[0] = 0xFF;
    source.m_buffer[1] = JPEG_EOI;
    source.bytes_in_buffer = 2;
    codec->err->msg_code = JWRN_JPEG_EOF;
    codec->err->emit_message(reinterpret_cast<j_common_ptr>(codec), -1);
    return TRUE;
}

void JpegSource::skip(j_decompress_ptr codec, long count)
{
    JpegSource &source = of(codec);
    if (count <= 0)
        return;
    const auto buffered = long(std::min(source.bytes_in_buffer, size_t(count)));
    source.next_input_byte += buffered;
    source.bytes_in_buffer -= size_t(buffered);
    if (count > buffered)
        source.m_device.skip(count - buffered);
}

} // namespace mosslantern
