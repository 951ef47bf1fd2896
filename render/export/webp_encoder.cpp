#include "render/export/webp_encoder.h"

#include "render/pixels/pixels.h"

#include <QtCore/QScopeGuard>
#include <QtGui/QColorSpace>

#include <webp/mux.h>

#include <algorithm>
#include <memory>
#include <new>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int bandRows = 64;

std::unexpected<Error> failed()
{
    return fail(u"there is not enough memory for a WebP picture of it."_s);
}

/// `picture`, a whole file, with the profile of sRGB.
Result<QByteArray> withProfile(const WebPMemoryWriter &picture)
{
    const QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
    const WebPData image{picture.mem, picture.size};
    const WebPData chunk{reinterpret_cast<const uint8_t *>(profile.constData()), size_t(profile.size())};
    const std::unique_ptr<WebPMux, decltype(&WebPMuxDelete)> mux(WebPMuxNew(), &WebPMuxDelete);
    WebPData whole{};
    const auto freed = qScopeGuard([&] { WebPDataClear(&whole); });
    if (!mux || WebPMuxSetImage(mux.get(), &image, 0) != WEBP_MUX_OK ||
        WebPMuxSetChunk(mux.get(), "ICCP", &chunk, 0) != WEBP_MUX_OK ||
        WebPMuxAssemble(mux.get(), &whole) != WEBP_MUX_OK)
        return failed();
    return QByteArray(reinterpret_cast<const char *>(whole.bytes), qsizetype(whole.size));
}

} // namespace

WebpEncoder::WebpEncoder(QSize size, const RowPainter &paint)
{
    WebPPictureInit(&m_picture);
    m_picture.use_argb = 1;
    m_picture.width = size.width();
    m_picture.height = size.height();
    if (std::max(size.width(), size.height()) > WEBP_MAX_DIMENSION)
        return;
    if (!WebPPictureAlloc(&m_picture))
        throw std::bad_alloc();
    Q_ASSERT(m_picture.argb_stride == size.width());
    auto freed = qScopeGuard([&] { WebPPictureFree(&m_picture); });
    for (int first = 0; first < size.height(); first += bandRows) {
        const int count = std::min(bandRows, size.height() - first);
        auto *rows = reinterpret_cast<uint8_t *>(m_picture.argb + ptrdiff_t(m_picture.argb_stride) * first);
        paint(first, count, rows);
        unpremultiply(rows, size.width() * count);
        QImage image(rows, size.width(), count, 4 * size.width(), QImage::Format_RGBA8888);
        swapRedAndBlue(image);
    }
    freed.dismiss();
}

WebpEncoder::~WebpEncoder()
{
    WebPPictureFree(&m_picture);
}

Result<QByteArray> WebpEncoder::encode(int quality)
{
    WebPConfig config;
    WebPConfigPreset(&config, WEBP_PRESET_DEFAULT, float(quality));
    return encode(config);
}

Result<QByteArray> WebpEncoder::encodeLossless()
{
    WebPConfig config;
    WebPConfigInit(&config);
    // The next level makes files a sixth smaller, in two and a half times the time and half as much memory
    // again.
    constexpr int fastest = 0;
    WebPConfigLosslessPreset(&config, fastest);
    return encode(config);
}

Result<QByteArray> WebpEncoder::encode(const WebPConfig &config)
{
    if (!m_picture.argb)
        return fail(u"WebP pictures have at most %1 pixels on a side."_s.arg(WEBP_MAX_DIMENSION));
    WebPMemoryWriter writer;
    WebPMemoryWriterInit(&writer);
    const auto freed = qScopeGuard([&] { WebPMemoryWriterClear(&writer); });
    m_picture.writer = WebPMemoryWrite;
    m_picture.custom_ptr = &writer;
    if (!WebPEncode(&config, &m_picture))
        return failed();
    return withProfile(writer);
}

} // namespace mosslantern
