#include "render/picture/decoder/qt_decoder.h"

#include "render/picture/decoder/picture_cut.h"
#include "render/picture/decoding_share.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_exif.h"
#include "render/picture/picture_fit.h"

#include <QtCore/QBuffer>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// In MiB. Each picture is bounded before it is decoded; this still stops a decoder that asks for more.
constexpr int allocationLimit = mostDecodingMemory >> 20;

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

} // namespace

QtDecoder::QtDecoder(PictureFormat format)
    : m_format(format)
{
    QImageReader::setAllocationLimit(allocationLimit);
    m_reader.setAutoDetectImageFormat(false);
    m_reader.setFormat(pluginName(format));
}

void QtDecoder::load()
{
    QBuffer nothing;
    nothing.open(QIODevice::ReadOnly);
    static_cast<void>(QImageReader(&nothing, pluginName(m_format)).canRead());
}

Result<QSize> QtDecoder::open(QIODevice &device)
{
    m_device = &device;
    // Of orientations, Qt's decoders know in TIFF files alone.
    if (m_format == PictureFormat::WebP)
        m_orientation = chunkOrientation(device, m_format);
    m_reader.setDevice(&device);
    m_size = m_reader.size();
    if (m_format == PictureFormat::Tiff)
        m_orientation = tiffOrientation(m_reader);
    if (!m_size.isValid())
        return fail(damagedPicture());
    if (const auto checked = checkPictureSize(m_size, bytesPerPixel(), mostDecodingMemory); !checked)
        return std::unexpected(checked.error());
    return turned(m_size, m_orientation);
}

/// The decoded picture, and what libwebp decodes it from when it was compressed without loss.
int QtDecoder::bytesPerPixel() const
{
    const int depth = QImage::toPixelFormat(m_reader.imageFormat()).bitsPerPixel();
    const int pixel = depth > 0 ? (depth + 7) / 8 : 4;
    return m_format == PictureFormat::WebP ? 8 : pixel;
}

qint64 QtDecoder::bytesFor(const PictureRequest &request) const
{
    const qint64 file = m_format == PictureFormat::WebP ? m_device->size() : 0; // read as a whole
    return file + qint64(m_size.width()) * m_size.height() * bytesPerPixel() +
           fitOf(m_size, m_orientation, request).bytes();
}

Result<Picture> QtDecoder::decode(const PictureRequest &request)
{
    const qint64 start = m_device->pos();
    const bool isCut = isCutShort(*m_device, m_format);
    m_device->seek(start);
    if (isCut)
        return fail(incompletePicture());
    QImage image = m_reader.read();
    if (image.isNull() || image.size() != m_size)
        return fail(damagedPicture());
    const QColorSpace space = image.colorSpace();
    return fitPicture(std::move(image), m_orientation, space, request);
}

} // namespace mosslantern
