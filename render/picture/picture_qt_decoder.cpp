#include "render/picture/picture_qt_decoder.h"

#include "render/picture/decoding_share.h"
#include "render/picture/picture_cut.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_exif.h"
#include "render/picture/picture_fit.h"

#include <QtGui/QImageReader>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

/// Qt's limit for the whole process, in MiB, holds only 32 megapixels by default. checkPictureSize() bounds
/// each picture of ours before it is decoded; this limit still stops a decoder that asks for more.
constexpr int allocationLimit = decodingMemory >> 20;

QByteArray pluginName(PictureFormat format)
{
    switch (format) {
    case PictureFormat::WebP:
        return "webp"_ba;
    case PictureFormat::Gif:
        return "gif"_ba;
    case PictureFormat::Bmp:
        return "bmp"_ba;
    case PictureFormat::Tiff:
        return "tiff"_ba;
    default:
        Q_UNREACHABLE();
    }
}

Orientation tiffOrientation(const QImageReader &reader)
{
    // Qt mirrors and flips first and rotates by 90 degrees clockwise then.
    const auto steps = reader.transformation();
    const bool mirrored = steps.testFlag(QImageIOHandler::TransformationMirror);
    const bool flipped = steps.testFlag(QImageIOHandler::TransformationFlip);
    if (steps.testFlag(QImageIOHandler::TransformationRotate90))
        return {true, !flipped, mirrored};
    return {false, mirrored, flipped};
}

/// Makes `reader` look at nothing but the content, and that only as `format`. Returns the orientation, of
/// which Qt's decoders know in TIFF files alone.
Orientation open(QImageReader &reader, QIODevice &device, PictureFormat format)
{
    static const bool raised = (QImageReader::setAllocationLimit(allocationLimit), true);
    Q_UNUSED(raised);
    const Orientation orientation =
        format == PictureFormat::WebP ? chunkOrientation(device, format) : Orientation{};
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(pluginName(format));
    reader.setDevice(&device);
    return format == PictureFormat::Tiff ? tiffOrientation(reader) : orientation;
}

/// The most that a decoder holds for each pixel: the decoded picture, and what libwebp decodes it from when
/// it was compressed without loss, or the strip that a TIFF file may be made of.
int bytesPerPixel(const QImageReader &reader, PictureFormat format)
{
    const int depth = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
    const int pixel = depth > 0 ? (depth + 7) / 8 : 4;
    return format == PictureFormat::WebP || format == PictureFormat::Tiff ? std::max(pixel, 4) + 4 : pixel;
}

/// The size in the header, once it is known that decoding it is safe.
Result<QSize> checkedSize(const QImageReader &reader, PictureFormat format)
{
    const QSize size = reader.size();
    if (!size.isValid())
        return fail(damagedPicture());
    if (const auto checked = checkPictureSize(size, bytesPerPixel(reader, format), decodingMemory); !checked)
        return std::unexpected(checked.error());
    return size;
}

} // namespace

Result<Picture> decodeWithQt(QIODevice &device, PictureFormat format, const PictureRequest &request)
{
    if (isCutShort(device, format))
        return fail(incompletePicture());
    QImageReader reader;
    const Orientation orientation = open(reader, device, format);
    const auto size = checkedSize(reader, format);
    if (!size)
        return std::unexpected(size.error());
    const DecodingShare share(qint64(size->width()) * size->height() * bytesPerPixel(reader, format) +
                              fitOf(*size, orientation, request).bytes());
    QImage image = reader.read();
    if (image.isNull())
        return fail(damagedPicture());
    const QColorSpace space = image.colorSpace();
    return fitPicture(std::move(image), orientation, space, request);
}

Result<PictureInfo> readInfoWithQt(QIODevice &device, PictureFormat format)
{
    QImageReader reader;
    const Orientation orientation = open(reader, device, format);
    const auto size = checkedSize(reader, format);
    if (!size)
        return std::unexpected(size.error());
    return PictureInfo{format, turned(*size, orientation)};
}

} // namespace mosslantern
