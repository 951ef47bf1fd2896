#include "render/export/slide_encoder.h"

#include "render/export/fitting_quality.h"
#include "render/export/jpeg_encoder.h"
#include "render/export/small_png.h"
#include "render/export/webp_encoder.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool hasQuality(SlideFormat format)
{
    return format == SlideFormat::jpeg || format == SlideFormat::webp;
}

Result<QByteArray> checked(Result<QByteArray> file, const SlideEncoding &encoding)
{
    if (file && encoding.mostBytes && file->size() > *encoding.mostBytes)
        return std::unexpected(tooLarge(*encoding.mostBytes));
    return file;
}

Result<QByteArray> encodeAsJpeg(QSize size, const RowPainter &paint, const SlideEncoding &encoding)
{
    const RowPainter onWhite = [&](int first, int count, uint8_t *out) {
        paint(first, count, out);
        putOnWhite(out, size.width() * count);
    };
    if (!encoding.mostBytes)
        return encodeJpeg(size, onWhite, encoding.quality, encoding.progressive);
    QImage drawn = newImage(size, QImage::Format_RGBX8888);
    onWhite(0, size.height(), drawn.bits());
    const RowPainter again = [&](int first, int count, uint8_t *out) {
        std::copy_n(drawn.constScanLine(first), drawn.bytesPerLine() * count, out);
    };
    return encodeWithin(*encoding.mostBytes, encoding.quality,
                        [&](int quality) { return encodeJpeg(size, again, quality, encoding.progressive); });
}

Result<QByteArray> encodeAsWebp(QSize size, const RowPainter &paint, const SlideEncoding &encoding)
{
    WebpEncoder encoder(size, paint);
    if (!hasQuality(encoding.format))
        return encoder.encodeLossless();
    const auto encode = [&](int quality) { return encoder.encode(quality); };
    return encoding.mostBytes ? encodeWithin(*encoding.mostBytes, encoding.quality, encode)
                              : encode(encoding.quality);
}

} // namespace

Result<QByteArray> encodeSlide(QSize size, const RowPainter &paint, const SlideEncoding &encoding)
{
    Q_ASSERT(!encoding.isByBands());
    if (encoding.format == SlideFormat::png)
        return checked(encodeSmallPng(size, paint), encoding);
    return checked(encoding.format == SlideFormat::jpeg ? encodeAsJpeg(size, paint, encoding)
                                                        : encodeAsWebp(size, paint, encoding),
                   encoding);
}

qint64 encodingMemory(QSize size, const SlideEncoding &encoding)
{
    const qint64 pixels = qint64(size.width()) * size.height();
    switch (encoding.format) {
    case SlideFormat::png:
        return encoding.isSmall ? pixels * smallPngBytesPerPixel : 0;
    case SlideFormat::jpeg:
        // A progressive picture is held as the coefficients of its three channels.
        return pixels * ((encoding.mostBytes ? 4 : 0) + (encoding.progressive ? 6 : 0));
    case SlideFormat::webp:
        return pixels * webpBytesPerPixel;
    case SlideFormat::losslessWebp:
        return pixels * losslessWebpBytesPerPixel;
    }
    Q_UNREACHABLE();
}

Error tooLarge(qint64 mostBytes)
{
    return {u"the file would be larger than %1 bytes."_s.arg(mostBytes)};
}

} // namespace mosslantern
