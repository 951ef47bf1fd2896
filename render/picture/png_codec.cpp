#include "render/picture/png_codec.h"

#include "render/picture/decoding_stop.h"
#include "render/picture/picture_errors.h"

#include <QtCore/QPointF>

#include <string_view>

namespace mosslantern {

namespace {

using namespace std::string_view_literals;

// In pairs of name and end. Where the picture is turned is read elsewhere.
constexpr auto passedOver =
    "bKGD\0eXIf\0hIST\0iTXt\0oFFs\0pCAL\0pHYs\0sBIT\0sCAL\0sPLT\0tEXt\0tIME\0zTXt\0"sv;
constexpr int nameSize = 5;

} // namespace

PngCodec::PngCodec(QIODevice &device)
    : m_device(device)
{
    const auto fail = [](png_structp png, png_const_charp) {
        std::longjmp(static_cast<PngCodec *>(png_get_error_ptr(png))->m_failed, 1);
    };
    m_png = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, fail, [](png_structp, png_const_charp) {});
    m_info = m_png ? png_create_info_struct(m_png) : nullptr;
    if (!m_info)
        return;
    png_set_read_fn(m_png, this, [](png_structp png, png_bytep bytes, size_t count) {
        auto &codec = *static_cast<PngCodec *>(png_get_io_ptr(png));
        if (!isDecodingStopped() &&
            codec.m_device.read(reinterpret_cast<char *>(bytes), qint64(count)) == qint64(count))
            return;
        codec.m_ended = true;
        std::longjmp(codec.m_failed, 1);
    });
    png_set_keep_unknown_chunks(m_png, PNG_HANDLE_CHUNK_NEVER, nullptr, 0);
    png_set_keep_unknown_chunks(m_png, PNG_HANDLE_CHUNK_NEVER,
                                reinterpret_cast<png_const_bytep>(passedOver.data()),
                                int(passedOver.size()) / nameSize);
}

PngCodec::~PngCodec()
{
    png_destroy_read_struct(&m_png, &m_info, nullptr);
}

Result<> PngCodec::readHeader()
{
    if (!m_info)
        return fail(pictureNeedsTooMuchMemory());
    if (!tryReadHeader())
        return fail(isDecodingStopped() ? stoppedDecoding() : damagedPicture());
    return {};
}

QSize PngCodec::size() const
{
    return {int(png_get_image_width(m_png, m_info)), int(png_get_image_height(m_png, m_info))};
}

bool PngCodec::isInterlaced() const
{
    return png_get_interlace_type(m_png, m_info) != PNG_INTERLACE_NONE;
}

bool PngCodec::hasAlpha() const
{
    return (png_get_color_type(m_png, m_info) & PNG_COLOR_MASK_ALPHA) != 0 ||
           png_get_valid(m_png, m_info, PNG_INFO_tRNS) != 0;
}

QColorSpace PngCodec::colorSpace() const
{
    png_charp name = nullptr;
    png_bytep profile = nullptr;
    png_uint_32 size = 0;
    int compression = 0;
    if (png_get_iCCP(m_png, m_info, &name, &compression, &profile, &size) != 0)
        return QColorSpace::fromIccProfile({reinterpret_cast<const char *>(profile), qsizetype(size)});
    double gamma = 0;
    if (png_get_valid(m_png, m_info, PNG_INFO_sRGB) != 0 || png_get_gAMA(m_png, m_info, &gamma) == 0 ||
        gamma <= 0)
        return {};
    double white[2], red[2], green[2], blue[2];
    const auto transfer = QColorSpace::TransferFunction::Gamma;
    const auto exponent = float(1 / gamma);
    if (png_get_cHRM(m_png, m_info, white, white + 1, red, red + 1, green, green + 1, blue, blue + 1) == 0)
        return {QColorSpace::Primaries::SRgb, transfer, exponent};
    const auto point = [](const double *at) { return QPointF(at[0], at[1]); };
    return {point(white), point(red), point(green), point(blue), transfer, exponent};
}

Result<> PngCodec::readRows(uchar *rows, qsizetype bytesPerRow, int count)
{
    if (isDecodingStopped() || !tryReadRows(rows, bytesPerRow, count))
        return fail(isDecodingStopped() ? stoppedDecoding()
                    : m_ended           ? incompletePicture()
                                        : damagedPicture());
    return {};
}

// Nothing in these two may need destruction.

bool PngCodec::tryReadHeader()
{
    if (setjmp(m_failed))
        return false;
    png_read_info(m_png, m_info);
    return true;
}

bool PngCodec::tryReadRows(uchar *rows, qsizetype bytesPerRow, int count)
{
    if (setjmp(m_failed))
        return false;
    int passes = 1;
    if (!m_started) {
        m_started = true;
        png_set_expand(m_png);
        png_set_scale_16(m_png);
        png_set_gray_to_rgb(m_png);
        png_set_add_alpha(m_png, 0xFF, PNG_FILLER_AFTER);
        passes = png_set_interlace_handling(m_png);
        png_start_read_image(m_png);
    }
    for (int pass = 0; pass < passes; ++pass) {
        for (int row = 0; row < count; ++row)
            png_read_row(m_png, rows + bytesPerRow * row, nullptr);
    }
    return true;
}

} // namespace mosslantern
