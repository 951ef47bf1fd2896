#include "render/picture/heif_decoder.h"

#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_fit.h"

#include <libheif/heif.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

template <auto release>
struct Release
{
    template <typename Object>
    void operator()(Object *object) const
    {
        release(object);
    }
};

template <typename Object, auto release>
using Owned = std::unique_ptr<Object, Release<release>>;

using Context = Owned<heif_context, heif_context_free>;
using Handle = Owned<heif_image_handle, heif_image_handle_release>;
using Options = Owned<heif_decoding_options, heif_decoding_options_free>;
using CodedColors = Owned<heif_color_profile_nclx, heif_nclx_color_profile_free>;

// Planes of brightness and colour, the pixels made of them, and the part that is kept.
constexpr int usualBytesPerPixel = 8;
constexpr int deepBytesPerPixel = 12;

Error failure(const heif_error &error)
{
    if (error.code == heif_error_Unsupported_feature || error.code == heif_error_Unsupported_filetype)
        return {u"This kind of HEIC or AVIF picture is not supported."_s};
    return {damagedPicture()};
}

/// The primary picture of a file, whose size is one that may be decoded.
class File
{
public:
    static Result<File> open(const QByteArray &bytes);

    const heif_image_handle *handle() const { return m_handle.get(); }
    QSize size() const
    {
        return {heif_image_handle_get_width(handle()), heif_image_handle_get_height(handle())};
    }
    QColorSpace colorSpace() const;

private:
    Context m_context;
    Handle m_handle;
};

Result<File> File::open(const QByteArray &bytes)
{
    // libheif loads its decoders at the first use; this makes the first use safe in any thread.
    static const heif_error initialised = heif_init(nullptr);
    Q_UNUSED(initialised);

    File file;
    file.m_context.reset(heif_context_alloc());
    heif_context *context = file.m_context.get();
    heif_context_set_maximum_image_size_limit(context, longestPictureSide);
    // Callers load several pictures at once, on threads of their own.
    heif_context_set_max_decoding_threads(context, 0);
    auto error =
        heif_context_read_from_memory_without_copy(context, bytes.constData(), size_t(bytes.size()), nullptr);
    if (error.code != heif_error_Ok)
        return std::unexpected(failure(error));
    heif_image_handle *handle = nullptr;
    error = heif_context_get_primary_image_handle(context, &handle);
    if (error.code != heif_error_Ok)
        return std::unexpected(failure(error));
    file.m_handle.reset(handle);

    const bool deep = heif_image_handle_get_luma_bits_per_pixel(handle) > 8;
    if (const auto checked = checkPictureSize(file.size(), deep ? deepBytesPerPixel : usualBytesPerPixel);
        !checked)
        return std::unexpected(checked.error());
    return file;
}

QColorSpace File::colorSpace() const
{
    const auto type = heif_image_handle_get_color_profile_type(handle());
    if (type == heif_color_profile_type_rICC || type == heif_color_profile_type_prof) {
        QByteArray profile(qsizetype(heif_image_handle_get_raw_color_profile_size(handle())),
                           Qt::Uninitialized);
        if (heif_image_handle_get_raw_color_profile(handle(), profile.data()).code != heif_error_Ok)
            return {};
        return QColorSpace::fromIccProfile(profile);
    }
    if (type != heif_color_profile_type_nclx)
        return {};
    heif_color_profile_nclx *coded = nullptr;
    const auto error = heif_image_handle_get_nclx_color_profile(handle(), &coded);
    const CodedColors colors(coded); // set in some cases of error, too
    if (error.code != heif_error_Ok || colors->color_primaries == heif_color_primaries_unspecified)
        return {};
    return codedColorSpace({colors->color_primary_white_x, colors->color_primary_white_y},
                           {colors->color_primary_red_x, colors->color_primary_red_y},
                           {colors->color_primary_green_x, colors->color_primary_green_y},
                           {colors->color_primary_blue_x, colors->color_primary_blue_y},
                           int(colors->transfer_characteristics));
}

/// The decoded picture, which holds on to libheif's memory.
Result<QImage> decode(const heif_image_handle *handle)
{
    const Options options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image *decoded = nullptr;
    const auto error =
        heif_decode_image(handle, &decoded, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, options.get());
    if (error.code != heif_error_Ok)
        return std::unexpected(failure(error));
    int stride = 0;
    const uchar *pixels = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
    const auto release = [](void *image) { heif_image_release(static_cast<const heif_image *>(image)); };
    auto format = QImage::Format_RGBX8888;
    if (heif_image_handle_has_alpha_channel(handle)) {
        format = heif_image_handle_is_premultiplied_alpha(handle) ? QImage::Format_RGBA8888_Premultiplied
                                                                  : QImage::Format_RGBA8888;
    }
    QImage image(pixels, heif_image_get_width(decoded, heif_channel_interleaved),
                 heif_image_get_height(decoded, heif_channel_interleaved), stride, format, release, decoded);
    if (image.isNull()) {
        heif_image_release(decoded);
        return fail(damagedPicture());
    }
    return image;
}

} // namespace

Result<Picture> decodeHeif(const QByteArray &bytes, const PictureRequest &request)
{
    const auto file = File::open(bytes);
    if (!file)
        return std::unexpected(file.error());
    auto image = decode(file->handle());
    if (!image)
        return std::unexpected(image.error());
    if (image->size() != file->size())
        return fail(damagedPicture());
    return fitPicture(std::move(*image), {}, file->colorSpace(), request);
}

Result<PictureInfo> readHeifInfo(const QByteArray &bytes, PictureFormat format)
{
    const auto file = File::open(bytes);
    if (!file)
        return std::unexpected(file.error());
    return PictureInfo{format, file->size()};
}

} // namespace mosslantern
