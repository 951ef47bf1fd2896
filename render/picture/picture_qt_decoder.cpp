#include "render/picture/picture_qt_decoder.h"

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
constexpr int allocationLimit = 1024;

QByteArray pluginName(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Png:
        return "png"_ba;
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
    const bool inChunks = format == PictureFormat::Png || format == PictureFormat::WebP;
    const Orientation orientation = inChunks ? chunkOrientation(device, format) : Orientation{};
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(pluginName(format));
    reader.setDevice(&device);
    return format == PictureFormat::Tiff ? tiffOrientation(reader) : orientation;
}

/// The size in the header, once it is known that decoding it is safe.
Result<QSize> checkedSize(const QImageReader &reader)
{
    const QSize size = reader.size();
    if (!size.isValid())
        return fail(damagedPicture());
    // The decoded picture and a copy of it, or of a part of it, in 8 bits.
    const int depth = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
    if (const auto checked = checkPictureSize(size, std::max(depth, 32) / 8 + 4); !checked)
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
    if (const auto size = checkedSize(reader); !size)
        return std::unexpected(size.error());
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
    const auto size = checkedSize(reader);
    if (!size)
        return std::unexpected(size.error());
    return PictureInfo{format, turned(*size, orientation)};
}

} // namespace mosslantern
