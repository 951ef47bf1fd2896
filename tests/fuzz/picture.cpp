#include "render/picture/decoder/file_decoder.h"
#include "render/picture/jpeg_decoder.h"
#include "render/picture/png_decoder.h"
#include "tests/fuzz/target.h"

#include <QtCore/QBuffer>

using namespace mosslantern;

namespace {

constexpr PictureFormat format = PictureFormat::MOSSLANTERN_FORMAT;
/// Larger ones are refused or bounded elsewhere, and take long.
constexpr qint64 mostPixels = 1'000'000;

Result<QSize> sizeOf(QIODevice &device)
{
    if constexpr (format == PictureFormat::Jpeg || format == PictureFormat::Png) {
        const auto info = format == PictureFormat::Jpeg ? readJpegInfo(device) : readPngInfo(device);
        return info ? Result<QSize>(info->size) : std::unexpected(info.error());
    } else {
        return FileDecoder::of(format)->open(device);
    }
}

/// In this process, also what is decoded by one of its own.
Result<Picture> pictureOf(QIODevice &device, const PictureRequest &request)
{
    if constexpr (format == PictureFormat::Jpeg)
        return decodeJpeg(device, request);
    else if constexpr (format == PictureFormat::Png)
        return decodePng(device, request);
    const auto decoder = FileDecoder::of(format);
    if (const Result<QSize> size = decoder->open(device); !size)
        return std::unexpected(size.error());
    return decoder->decode(request);
}

} // namespace

/// The bytes are a picture of one format, which is read whole and reduced to a part of it.
void mosslantern::tryBytes(QByteArrayView bytes)
{
    if (pictureFormat(bytes) != format)
        return;
    QByteArray file = bytes.toByteArray();
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    const Result<QSize> size = sizeOf(buffer);
    if (!size)
        return;
    expect(!size->isEmpty() && qMax(size->width(), size->height()) <= longestPictureSide,
           "sizes are bounded");
    if (qint64(size->width()) * size->height() > mostPixels)
        return;
    for (const PictureRequest &request : {PictureRequest{}, {.cover = {9, 16}, .cropToCover = true}}) {
        buffer.seek(0);
        const auto picture = pictureOf(buffer, request);
        if (!picture)
            continue;
        expect(picture->fullSize == *size, "the header tells the size");
        expect(!picture->image.isNull(), "a picture has pixels");
        expect(!request.cover.isEmpty() || picture->image.size() == *size, "all pixels are there");
    }
}
