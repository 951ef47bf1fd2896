#include "render/picture/jpeg_codec.h"

#include "render/picture/decoding_stop.h"
#include "render/picture/picture_errors.h"

#include <jerror.h>

#include <algorithm>
#include <cstdlib>
#include <span>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

// Encoders write about ten; a small file can announce thousands, each of which costs a pass over the picture.
constexpr int mostScans = 64;

constexpr int exifMarker = JPEG_APP0 + 1;
constexpr int iccMarker = JPEG_APP0 + 2;
constexpr unsigned longestMarker = 0xFFFF;

} // namespace

JpegCodec::JpegCodec(QIODevice &device)
    : m_source(device)
{
    m_jpeg.client_data = this;
    m_jpeg.err = jpeg_std_error(&m_errors);
    m_errors.error_exit = [](j_common_ptr jpeg) { std::longjmp(of(jpeg).m_failed, 1); };
    m_errors.output_message = [](j_common_ptr) {};
    m_errors.emit_message = [](j_common_ptr jpeg, int level) {
        if (level >= 0)
            return;
        JpegCodec &codec = of(jpeg);
        const int code = codec.m_errors.msg_code;
        if (code == JWRN_JPEG_EOF || (code == JWRN_HIT_MARKER && codec.m_jpeg.unread_marker == JPEG_EOI))
            codec.noteEndOfData();
    };
    m_progress.progress_monitor = [](j_common_ptr jpeg) {
        JpegCodec &codec = of(jpeg);
        if (codec.m_jpeg.input_scan_number > mostScans || isDecodingStopped())
            codec.m_errors.error_exit(jpeg);
    };
}

JpegCodec::~JpegCodec()
{
    jpeg_destroy_decompress(&m_jpeg);
    std::free(m_icc);
}

bool JpegCodec::isCmyk() const
{
    return m_jpeg.jpeg_color_space == JCS_CMYK || m_jpeg.jpeg_color_space == JCS_YCCK;
}

QByteArrayView JpegCodec::exif() const
{
    for (auto marker = m_jpeg.marker_list; marker; marker = marker->next) {
        const QByteArrayView data(marker->data, qsizetype(marker->data_length));
        if (marker->marker == exifMarker && data.startsWith("Exif"))
            return data;
    }
    return {};
}

QByteArrayView JpegCodec::iccProfile() const
{
    return {m_icc, qsizetype(m_iccSize)};
}

Result<> JpegCodec::readHeader()
{
    if (!tryReadHeader())
        return std::unexpected(failure());
    // Each block of 8 × 8 pixels takes one bit at the very least, save with arithmetic coding. So a few bytes
    // cannot make us prepare for hundreds of megapixels.
    const qint64 pixels = qint64(m_jpeg.image_width) * m_jpeg.image_height;
    if (!m_jpeg.arith_code && pixels / 512 > m_source.size()) {
        m_incomplete = true;
        return std::unexpected(failure());
    }
    return {};
}

qint64 JpegCodec::heldBytes() const
{
    if (!jpeg_has_multiple_scans(const_cast<j_decompress_ptr>(&m_jpeg)))
        return 0;
    qint64 bytes = 0;
    for (const jpeg_component_info &component : std::span(m_jpeg.comp_info, size_t(m_jpeg.num_components)))
        bytes += qint64(component.width_in_blocks) * component.height_in_blocks * qint64(sizeof(JBLOCK));
    return bytes;
}

Result<QRect> JpegCodec::start(const QRect &area, int eighths, qint64 memory)
{
    m_firstRow = area.top() * 8 / eighths;
    m_lastRow = area.bottom() * 8 / eighths;
    m_jpeg.scale_num = unsigned(eighths);
    m_jpeg.scale_denom = 8;
    m_jpeg.out_color_space = isCmyk() ? JCS_CMYK : JCS_EXT_RGBA;
    m_jpeg.mem->max_memory_to_use = std::max<long>(memory, 1);
    auto left = JDIMENSION(area.left());
    auto width = JDIMENSION(area.width());
    if (!tryStart(&left, &width, area.top()))
        return std::unexpected(failure());
    return QRect(int(left), area.top(), int(width), area.height());
}

Result<> JpegCodec::readRows(uchar *rows, qsizetype bytesPerRow, int count)
{
    if (!tryReadRows(rows, bytesPerRow, count))
        return std::unexpected(failure());
    return {};
}

// libjpeg reports an error by jumping back to setjmp(): nothing in these three may need destruction.

bool JpegCodec::tryReadHeader()
{
    if (setjmp(m_failed))
        return false;
    jpeg_create_decompress(&m_jpeg);
    m_jpeg.progress = &m_progress;
    m_source.attach(m_jpeg);
    jpeg_save_markers(&m_jpeg, exifMarker, longestMarker);
    jpeg_save_markers(&m_jpeg, iccMarker, longestMarker);
    jpeg_read_header(&m_jpeg, TRUE);
    jpeg_read_icc_profile(&m_jpeg, &m_icc, &m_iccSize);
    return true;
}

bool JpegCodec::tryStart(JDIMENSION *left, JDIMENSION *width, int top)
{
    if (setjmp(m_failed))
        return false;
    // At an eighth each block becomes its average, which the first scans of a progressive picture hold.
    m_jpeg.buffered_image = m_jpeg.progressive_mode && m_jpeg.scale_num == 1 ? TRUE : FALSE;
    m_jpeg.do_block_smoothing = !m_jpeg.buffered_image;
    jpeg_start_decompress(&m_jpeg);
    if (m_jpeg.buffered_image) {
        int status = JPEG_SUSPENDED;
        while (status != JPEG_REACHED_EOI && !(status == JPEG_SCAN_COMPLETED && hasAverages()))
            status = jpeg_consume_input(&m_jpeg);
        jpeg_start_output(&m_jpeg, m_jpeg.input_scan_number);
    }
    if (*width < m_jpeg.output_width)
        jpeg_crop_scanline(&m_jpeg, left, width);
    if (top > 0)
        jpeg_skip_scanlines(&m_jpeg, JDIMENSION(top));
    return true;
}

bool JpegCodec::tryReadRows(uchar *rows, qsizetype bytesPerRow, int count)
{
    if (setjmp(m_failed))
        return false;
    const JDIMENSION first = m_jpeg.output_scanline;
    const JDIMENSION end = first + JDIMENSION(count);
    while (m_jpeg.output_scanline < end) {
        JSAMPROW next[8];
        const JDIMENSION row = m_jpeg.output_scanline;
        const auto open = std::min<JDIMENSION>(std::size(next), end - row);
        for (JDIMENSION i = 0; i < open; ++i)
            next[i] = rows + bytesPerRow * qsizetype(row - first + i);
        jpeg_read_scanlines(&m_jpeg, next, open);
    }
    return true;
}

bool JpegCodec::hasAverages() const
{
    const auto components = std::span(m_jpeg.coef_bits, size_t(m_jpeg.num_components));
    return std::ranges::all_of(components, [](const auto &bits) { return bits[0] >= 0; });
}

void JpegCodec::noteEndOfData()
{
    if (m_ended || m_lastRow < m_firstRow)
        return;
    m_ended = true;
    if (isMissingTooMuch()) {
        m_incomplete = true;
        m_errors.error_exit(reinterpret_cast<j_common_ptr>(&m_jpeg));
    }
}

bool JpegCodec::isMissingTooMuch() const
{
    if (m_jpeg.progressive_mode) {
        // Once each coefficient has come in one scan, the others only refine them.
        for (int component = 0; component < m_jpeg.num_components; ++component) {
            if (std::ranges::any_of(m_jpeg.coef_bits[component], [](int bits) { return bits < 0; }))
                return true;
        }
        return false;
    }
    if (jpeg_has_multiple_scans(const_cast<j_decompress_ptr>(&m_jpeg)))
        return true;
    const int known = int(m_jpeg.input_iMCU_row) * m_jpeg.max_v_samp_factor * DCTSIZE;
    const int missing = m_lastRow + 1 - std::max(known, m_firstRow);
    return missing * 8 > m_lastRow + 1 - m_firstRow;
}

Error JpegCodec::failure() const
{
    if (isDecodingStopped())
        return {stoppedDecoding()};
    if (m_incomplete)
        return {incompletePicture()};
    switch (m_errors.msg_code) {
    case JERR_OUT_OF_MEMORY:
    case JERR_NO_BACKING_STORE:
        return {pictureNeedsTooMuchMemory()};
    case JERR_ARITH_NOTIMPL:
    case JERR_BAD_PRECISION:
    case JERR_CONVERSION_NOTIMPL:
    case JERR_SOF_UNSUPPORTED:
        return {u"This kind of JPEG picture is not supported."_s};
    default:
        return {damagedPicture()};
    }
}

} // namespace mosslantern
