#pragma once

#include <QtCore/QIODevice>

#include <jpeglib.h>

#include <array>
#include <cstdio> // jpeglib.h needs it

namespace mosslantern {

/// Feeds a libjpeg decompressor from a device, in pieces, so that no copy of the file is held in memory.
/// At the end of the data the decompressor is warned (JWRN_JPEG_EOF) and given an end marker.
class JpegSource : private jpeg_source_mgr
{
public:
    explicit JpegSource(QIODevice &device);
    JpegSource(const JpegSource &) = delete;
    JpegSource &operator=(const JpegSource &) = delete;

    /// Bytes in the device.
    [[nodiscard]] qint64 size() const { return m_device.size(); }
    void attach(jpeg_decompress_struct &codec) { codec.src = this; }

private:
    static JpegSource &of(j_decompress_ptr codec) { return static_cast<JpegSource &>(*codec->src); }
    static boolean fill(j_decompress_ptr codec);
    static void skip(j_decompress_ptr codec, long count);

    QIODevice &m_device;
    std::array<JOCTET, 65'536> m_buffer;
};

} // namespace mosslantern
