#include "render/picture/decoder/heif_decoder.h"

#include "render/picture/decoding_share.h"
#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_fit.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Options = HeifOwned<heif_decoding_options, heif_decoding_options_free>;
using CodedColors = HeifOwned<heif_color_profile_nclx, heif_nclx_color_profile_free>;
using Pixels = HeifOwned<const heif_image, heif_image_release>;

Result<> checked(const heif_error &error)
{
    if (error.code == heif_error_Ok)
        return {};
    if (error.code == heif_error_Unsupported_feature || error.code == heif_error_Unsupported_filetype)
        return fail(u"This kind of HEIC or AVIF picture is not supported."_s);
    return fail(damagedPicture());
}

QColorSpace codedColors(const heif_color_profile_nclx &coded)
{
    const float at[]{coded.color_primary_white_x, coded.color_primary_white_y, coded.color_primary_red_x,
                     coded.color_primary_red_y,   coded.color_primary_green_x, coded.color_primary_green_y,
                     coded.color_primary_blue_x,  coded.color_primary_blue_y};
    if (coded.color_primaries == heif_color_primaries_unspecified ||
        !std::ranges::all_of(at, [](float value) { return value >= 0 && value <= 1; }))
        return {};
    return codedColorSpace({at[0], at[1]}, {at[2], at[3]}, {at[4], at[5]}, {at[6], at[7]},
                           int(coded.transfer_characteristics));
}

} // namespace

void HeifDecoder::load()
{
    heif_init(nullptr); // looks for decoders
}

Result<QSize> HeifDecoder::open(QIODevice &device)
{
    m_bytes = device.readAll();
    m_context.reset(heif_context_alloc());
    heif_context *context = m_context.get();
    heif_context_set_maximum_image_size_limit(context, longestPictureSide);
    // Several of these programs run at once.
    heif_context_set_max_decoding_threads(context, 0);
    if (const auto read = checked(heif_context_read_from_memory_without_copy(
            context, m_bytes.constData(), size_t(m_bytes.size()), nullptr));
        !read)
        return std::unexpected(read.error());
    heif_image_handle *handle = nullptr;
    const auto found = checked(heif_context_get_primary_image_handle(context, &handle));
    m_handle.reset(handle);
    if (!found)
        return std::unexpected(found.error());
    m_size = {heif_image_handle_get_width(handle), heif_image_handle_get_height(handle)};
    if (const auto accepted = checkPictureSize(m_size, bytesPerPixel(), mostDecodingMemory); !accepted)
        return std::unexpected(accepted.error());
    return m_size;
}

/// Planes of brightness and colour, in the decoder and out of it, and the pixels made of them. With more than
/// 8 bits those that are not made of tiles take 14.
int HeifDecoder::bytesPerPixel() const
{
    return heif_image_handle_get_luma_bits_per_pixel(m_handle.get()) > 8 ? 11 : 10;
}

qint64 HeifDecoder::bytesFor(const PictureRequest &request) const
{
    return m_bytes.size() + qint64(m_size.width()) * m_size.height() * bytesPerPixel() +
           fitOf(m_size, {}, request).bytes();
}

QColorSpace HeifDecoder::colorSpace() const
{
    const heif_image_handle *handle = m_handle.get();
    const auto type = heif_image_handle_get_color_profile_type(handle);
    if (type == heif_color_profile_type_rICC || type == heif_color_profile_type_prof) {
        QByteArray profile(qsizetype(heif_image_handle_get_raw_color_profile_size(handle)), '\0');
        if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok)
            return {};
        return QColorSpace::fromIccProfile(profile);
    }
    if (type != heif_color_profile_type_nclx)
        return {};
    heif_color_profile_nclx *coded = nullptr;
    const auto error = heif_image_handle_get_nclx_color_profile(handle, &coded);
    const CodedColors colors(coded); // set in some cases of error, too
    return error.code == heif_error_Ok ? codedColors(*colors) : QColorSpace();
}

Result<Picture> HeifDecoder::decode(const PictureRequest &request)
{
    const Options options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image *decoded = nullptr;
    const auto done = checked(heif_decode_image(m_handle.get(), &decoded, heif_colorspace_RGB,
                                                heif_chroma_interleaved_RGBA, options.get()));
    const Pixels owned(decoded);
    if (!done)
        return std::unexpected(done.error());
    int stride = 0;
    const uint8_t *pixels = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
    if (!pixels || stride < 4 * m_size.width() ||
        heif_image_get_width(decoded, heif_channel_interleaved) != m_size.width() ||
        heif_image_get_height(decoded, heif_channel_interleaved) != m_size.height())
        return fail(damagedPicture());
    const heif_image_handle *handle = m_handle.get();
    const auto format = !heif_image_handle_has_alpha_channel(handle) ? QImage::Format_RGBX8888
                        : heif_image_handle_is_premultiplied_alpha(handle)
                            ? QImage::Format_RGBA8888_Premultiplied
                            : QImage::Format_RGBA8888;
    return fitPicture(QImage(pixels, m_size.width(), m_size.height(), stride, format), {}, colorSpace(),
                      request);
}

} // namespace mosslantern
