#include "render/picture/png_decoder.h"

#include "render/picture/decoding_share.h"
#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"
#include "render/picture/picture_exif.h"
#include "render/picture/picture_fit.h"
#include "render/picture/png_codec.h"

#include <algorithm>

namespace mosslantern {

namespace {

Result<> readCheckedHeader(PngCodec &codec)
{
    if (const auto read = codec.readHeader(); !read)
        return read;
    return checkPictureSize(codec.size(), codec.isInterlaced() ? 4 : 0, decodingMemory);
}

/// Reads the rows up to the last of `crop`.
Result<> readInto(RowReducer &reducer, PngCodec &codec, const QRect &crop)
{
    const QSize size = codec.size();
    const int atOnce = codec.isInterlaced() ? size.height() : rowsPerStrip;
    QImage strip(size.width(), atOnce, codec.hasAlpha() ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888);
    if (strip.isNull())
        return fail(pictureNeedsTooMuchMemory());
    for (int top = 0; top <= crop.bottom(); top += atOnce) {
        const int count = std::min(atOnce, size.height() - top);
        if (const auto read = codec.readRows(strip.bits(), strip.bytesPerLine(), count); !read)
            return read;
        reducer.add(strip, top);
    }
    return {};
}

} // namespace

Result<Picture> decodePng(QIODevice &device, const PictureRequest &request)
{
    const Orientation orientation = chunkOrientation(device, PictureFormat::Png);
    PngCodec codec(device);
    if (const auto read = readCheckedHeader(codec); !read)
        return std::unexpected(read.error());
    const QSize size = codec.size();
    const PictureFit fit = fitOf(size, orientation, request);
    const qint64 whole = codec.isInterlaced() ? qint64(4) * size.width() * size.height() : 0;
    const DecodingShare share(whole + fit.bytes());
    return fitted(fit, codec.hasAlpha(), codec.colorSpace(),
                  [&](RowReducer &reducer) { return readInto(reducer, codec, fit.crop); });
}

Result<PictureInfo> readPngInfo(QIODevice &device)
{
    const Orientation orientation = chunkOrientation(device, PictureFormat::Png);
    PngCodec codec(device);
    if (const auto read = readCheckedHeader(codec); !read)
        return std::unexpected(read.error());
    return PictureInfo{PictureFormat::Png, turned(codec.size(), orientation)};
}

} // namespace mosslantern
