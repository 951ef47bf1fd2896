#include "render/picture/jpeg_decoder.h"

#include "render/picture/decoding_share.h"
#include "render/picture/jpeg_codec.h"
#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_exif.h"
#include "render/picture/picture_fit.h"
#include "render/picture/picture_orientation.h"
#include "render/picture/picture_profile.h"

#include <algorithm>
#include <optional>

namespace mosslantern {

namespace {

// Upsampling of the colours looks at neighbours, which are missing at the edge of what is decoded.
constexpr int upsamplingMargin = 2;

Result<> readCheckedHeader(JpegCodec &codec)
{
    if (const auto read = codec.readHeader(); !read)
        return read;
    return checkPictureSize(codec.size(), 0, decodingMemory);
}

/// The smallest size that is enough. Of the sizes between, 3/8, 5/8, 6/8 and 7/8, libjpeg has no vectorised
/// transforms: they take up to twice as long as the next larger one here.
int enoughEighths(double scale)
{
    int eighths = 1;
    while (eighths < 8 && eighths < 8 * scale)
        eighths *= 2;
    return eighths;
}

/// For CMYK without a profile. Adobe's programs store the complement of each channel, and so does everyone
/// else.
void convertCmyk(uchar *pixels, int count)
{
    for (uchar *pixel = pixels; pixel < pixels + qsizetype(count) * 4; pixel += 4) {
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = uchar((pixel[channel] * pixel[3] + 127) / 255);
        pixel[3] = 255;
    }
}

/// Decodes `area` of the picture at `eighths`/8 of its size and turns it upright.
Result<QImage> decodeArea(JpegCodec &codec, const QRect &area, int eighths, QSize scaled,
                          Orientation orientation)
{
    QImage image(turned(area.size(), orientation), QImage::Format_RGBX8888);
    if (image.isNull())
        return fail(pictureNeedsTooMuchMemory());
    const QRect withMargin =
        area.adjusted(-upsamplingMargin, 0, upsamplingMargin, 0).intersected(QRect(QPoint(), scaled));
    const auto decoded = codec.start(withMargin, eighths, decodingMemory - image.sizeInBytes());
    if (!decoded)
        return std::unexpected(decoded.error());
    QImage strip(decoded->width(), rowsPerStrip, QImage::Format_RGBX8888);
    if (strip.isNull())
        return fail(pictureNeedsTooMuchMemory());
    std::optional<ProfileTransform> fromCmyk;
    if (codec.isCmyk())
        fromCmyk.emplace(codec.iccProfile().toByteArray(), PixelColors::cmyk);
    const uchar *shown = strip.constBits() + qsizetype(area.left() - decoded->left()) * 4;
    for (int top = 0; top < area.height(); top += rowsPerStrip) {
        const int count = std::min(rowsPerStrip, area.height() - top);
        if (const auto read = codec.readRows(strip.bits(), strip.bytesPerLine(), count); !read)
            return std::unexpected(read.error());
        if (fromCmyk && fromCmyk->isValid())
            fromCmyk->convert(strip.bits(), strip.width() * count);
        else if (fromCmyk)
            convertCmyk(strip.bits(), strip.width() * count);
        const QImage rows(shown, area.width(), count, strip.bytesPerLine(), strip.format());
        placeRows(rows, top, image, orientation);
    }
    return image;
}

} // namespace

Result<Picture> decodeJpeg(QIODevice &device, const PictureRequest &request)
{
    JpegCodec codec(device);
    if (const auto read = readCheckedHeader(codec); !read)
        return std::unexpected(read.error());
    const QSize stored = codec.size();
    const Orientation orientation = exifOrientation(codec.exif());
    const QSize full = turned(stored, orientation);

    const double needed = neededScale(full, request);
    int eighths = enoughEighths(needed);
    while (eighths > 1 && isLavish(full, request, eighths / 8.0, eighths / 16.0))
        eighths /= 2;
    const double pixelSize = 8.0 / eighths;
    const QSize scaled((stored.width() * eighths + 7) / 8, (stored.height() * eighths + 7) / 8);
    const QRectF wanted = turned(neededRegion(full, request), full, orientation.inverse());
    const QRect area = pixelsShowing(wanted, eighths / 8.0, scaled);

    const qint64 pixels = qint64(area.width()) * area.height();
    const DecodingShare share(codec.heldBytes() + 4 * pixels);
    auto image = decodeArea(codec, area, eighths, scaled, orientation);
    if (!image)
        return std::unexpected(image.error());
    if (const QByteArrayView profile = codec.iccProfile(); !profile.isEmpty() && !codec.isCmyk())
        convertToSrgb(*image, QColorSpace::fromIccProfile(profile.toByteArray()));

    // Below an eighth there is no more to gain in libjpeg.
    const int factor = reductionFactor(std::min(1.0, needed * pixelSize));
    Picture picture{.image = reduced(*image, factor), .fullSize = full, .region = {}};
    if (picture.image.isNull())
        return fail(pictureNeedsTooMuchMemory());
    const QRectF shown(QPointF(area.topLeft()) * pixelSize, QSizeF(area.size()) * pixelSize);
    picture.region = QRectF(turned(shown, stored, orientation).topLeft(),
                            QSizeF(picture.image.size()) * factor * pixelSize);
    return picture;
}

Result<PictureInfo> readJpegInfo(QIODevice &device)
{
    JpegCodec codec(device);
    if (const auto read = readCheckedHeader(codec); !read)
        return std::unexpected(read.error());
    return PictureInfo{PictureFormat::Jpeg, turned(codec.size(), exifOrientation(codec.exif()))};
}

} // namespace mosslantern
