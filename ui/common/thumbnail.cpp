#include "ui/common/thumbnail.h"

#include "ui/common/picture_node.h"

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

namespace mosslantern {

Thumbnail::Thumbnail(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Thumbnail::lookChanged, this, &Thumbnail::load);
}

Thumbnail::~Thumbnail()
{
    if (m_loader)
        m_loader->withdraw(this);
}

void Thumbnail::setSource(const QUrl &source)
{
    if (m_source == source)
        return;
    m_source = source;
    load();
    emit sourceChanged();
}

void Thumbnail::componentComplete()
{
    QQuickItem::componentComplete();
    QQmlEngine *const engine = qmlEngine(this);
    const int type = qmlTypeId("Mosslantern.Common", 1, 0, "ThumbnailLoader");
    m_loader = engine->singletonInstance<ThumbnailLoader *>(type);
    load();
}

void Thumbnail::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        load();
}

void Thumbnail::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        load();
}

void Thumbnail::load()
{
    if (!m_loader || !window() || size().isEmpty())
        return;
    const ThumbnailRequest request{.path = m_source.toLocalFile(),
                                   .size = size().toSize(),
                                   .radius = m_radius,
                                   .pixelRatio = window()->effectiveDevicePixelRatio(),
                                   .hasShadow = m_hasShadow};
    if (request == m_shown)
        return;
    m_loader->withdraw(this);
    if (const QImage image = m_loader->cached(request); !image.isNull()) {
        show(request, image, true);
        return;
    }
    show(request, m_loader->placeholder(request), false);
    if (request.path.isEmpty())
        return;
    m_loader->request(request, this, [this, request](const QImage &image) {
        if (!image.isNull() && request == m_shown)
            show(request, image, true);
    });
}

void Thumbnail::show(const ThumbnailRequest &request, const QImage &image, bool isLoaded)
{
    m_shown = request;
    m_image = image;
    update();
    if (m_isLoaded != isLoaded) {
        m_isLoaded = isLoaded;
        emit isLoadedChanged();
    }
}

QSGNode *Thumbnail::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *pictureNode = static_cast<PictureNode *>(node);
    if (m_image.isNull()) {
        delete pictureNode;
        return nullptr;
    }
    if (!pictureNode)
        pictureNode = new PictureNode(window(), QSGTexture::Nearest);
    QRectF shown(QPointF(), QSizeF(m_image.size()) / m_shown.pixelRatio);
    shown.moveCenter(boundingRect().center());
    pictureNode->show(m_image, shown);
    return pictureNode;
}

} // namespace mosslantern
