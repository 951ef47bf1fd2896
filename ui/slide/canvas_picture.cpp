#include "ui/slide/canvas_picture.h"

#include <QtQml/QQmlEngine>

namespace mosslantern {

namespace {

bool isOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const uchar *const row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (row[4 * x + 3] != 255)
                return false;
        }
    }
    return true;
}

} // namespace

CanvasPicture::CanvasPicture(QQuickItem &item, Turn turn)
    : m_item(item)
    , m_turn(turn)
{}

CanvasPicture::~CanvasPicture()
{
    if (m_loader)
        m_loader->withdraw(this);
}

void CanvasPicture::show(const QString &path, QSize pixels)
{
    const ThumbnailRequest wanted{.path = path, .size = pixels};
    if (wanted == m_wanted)
        return;
    if (!m_loader) {
        QQmlEngine *const engine = qmlEngine(&m_item);
        const int type = qmlTypeId("Mosslantern.Common", 1, 0, "ThumbnailLoader");
        m_loader = engine->singletonInstance<ThumbnailLoader *>(type);
    }
    m_loader->withdraw(this);
    if (path != m_wanted.path)
        m_image = {};
    m_wanted = wanted;
    m_isLoaded = false;
    if (path.isEmpty())
        return;
    if (const QImage image = m_loader->cached(wanted); !image.isNull()) {
        take(image);
        return;
    }
    if (m_turn == Turn::first)
        request();
    else
        QMetaObject::invokeMethod(this, &CanvasPicture::request, Qt::QueuedConnection);
}

void CanvasPicture::request()
{
    if (m_isLoaded || m_wanted.path.isEmpty())
        return;
    m_loader->request(m_wanted, this, [this, wanted = m_wanted](const QImage &image) {
        if (wanted != m_wanted)
            return;
        take(image);
        emit changed();
    });
}

void CanvasPicture::take(const QImage &image)
{
    m_image = image;
    m_isLoaded = !image.isNull();
    if (m_isLoaded && isOpaque(m_image))
        m_image.reinterpretAsFormat(QImage::Format_RGBX8888);
}

std::optional<PictureFill> CanvasPicture::fill() const
{
    if (m_image.isNull())
        return {};
    return PictureFill{m_image, QRectF(m_image.rect())};
}

} // namespace mosslantern
