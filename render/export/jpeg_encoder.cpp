#include "render/export/jpeg_encoder.h"

#include <QtGui/QColorSpace>

#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int bandRows = 64;

/// A libjpeg compressor whose failures are return values: false, after which nothing more can be done.
class JpegWriter
{
public:
    JpegWriter()
    {
        m_jpeg.client_data = this;
        m_jpeg.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = [](j_common_ptr jpeg) {
            std::longjmp(static_cast<JpegWriter *>(jpeg->client_data)->m_failed, 1);
        };
        m_errors.output_message = [](j_common_ptr) {};
    }
    ~JpegWriter()
    {
        jpeg_destroy_compress(&m_jpeg);
        std::free(m_bytes);
    }
    Q_DISABLE_COPY_MOVE(JpegWriter)

    // libjpeg reports an error by jumping back to setjmp(): nothing in these three may need destruction.

    bool start(QSize size, int quality, bool progressive, const QByteArray &profile)
    {
        if (setjmp(m_failed))
            return false;
        jpeg_create_compress(&m_jpeg);
        jpeg_mem_dest(&m_jpeg, &m_bytes, &m_size);
        m_jpeg.image_width = JDIMENSION(size.width());
        m_jpeg.image_height = JDIMENSION(size.height());
        m_jpeg.input_components = 4;
        m_jpeg.in_color_space = JCS_EXT_RGBX;
        jpeg_set_defaults(&m_jpeg);
        jpeg_set_quality(&m_jpeg, quality, TRUE);
        m_jpeg.comp_info[0].h_samp_factor = 1;
        m_jpeg.comp_info[0].v_samp_factor = 1;
        if (progressive)
            jpeg_simple_progression(&m_jpeg);
        jpeg_start_compress(&m_jpeg, TRUE);
        jpeg_write_icc_profile(&m_jpeg, reinterpret_cast<const JOCTET *>(profile.constData()),
                               unsigned(profile.size()));
        return true;
    }

    bool write(uint8_t *rows, size_t bytesPerRow, int count)
    {
        if (setjmp(m_failed))
            return false;
        for (int i = 0; i < count; ++i) {
            JSAMPROW row = rows + bytesPerRow * size_t(i);
            jpeg_write_scanlines(&m_jpeg, &row, 1);
        }
        return true;
    }

    bool finish()
    {
        if (setjmp(m_failed))
            return false;
        jpeg_finish_compress(&m_jpeg);
        return true;
    }

    QByteArray file() const { return {reinterpret_cast<const char *>(m_bytes), qsizetype(m_size)}; }

private:
    jpeg_compress_struct m_jpeg{};
    jpeg_error_mgr m_errors{};
    std::jmp_buf m_failed;
    unsigned char *m_bytes = nullptr;
    unsigned long m_size = 0;
};

} // namespace

Result<QByteArray> encodeJpeg(QSize size, const RowPainter &paint, int quality, bool progressive)
{
    const auto failed = [] { return fail(u"there is not enough memory for a JPEG picture of it."_s); };
    const QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
    const size_t bytesPerRow = size_t(4) * size_t(size.width());
    JpegWriter writer;
    if (!writer.start(size, quality, progressive, profile))
        return failed();
    std::vector<uint8_t> band(bytesPerRow * size_t(std::min(bandRows, size.height())));
    for (int first = 0; first < size.height(); first += bandRows) {
        const int count = std::min(bandRows, size.height() - first);
        paint(first, count, band.data());
        if (!writer.write(band.data(), bytesPerRow, count))
            return failed();
    }
    if (!writer.finish())
        return failed();
    return writer.file();
}

} // namespace mosslantern
