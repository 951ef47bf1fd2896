#include "ui/common/picture_node.h"

#include <QtCore/QHash>

namespace mosslantern {

namespace {

/// Nodes and textures live in the thread that draws their window.
std::shared_ptr<QSGTexture> textureOf(QQuickWindow *window, const QImage &picture)
{
    using Key = std::pair<const QQuickWindow *, qint64>;
    thread_local QHash<Key, std::weak_ptr<QSGTexture>> textures;
    const Key key(window, picture.cacheKey());
    if (const std::shared_ptr<QSGTexture> known = textures.value(key).lock())
        return known;
    textures.removeIf([](const auto &entry) { return entry.value().expired(); });
    const std::shared_ptr<QSGTexture> texture(window->createTextureFromImage(picture));
    textures.insert(key, texture);
    return texture;
}

} // namespace

PictureNode::PictureNode(QQuickWindow *window, QSGTexture::Filtering filtering)
    : m_window(window)
    , m_image(window->createImageNode())
{
    m_image->setFiltering(filtering);
    appendChildNode(m_image);
}

void PictureNode::show(const QImage &picture, const QRectF &rect)
{
    if (m_shownKey != picture.cacheKey()) {
        const std::shared_ptr<QSGTexture> texture = textureOf(m_window, picture);
        m_image->setTexture(texture.get());
        m_texture = texture;
        m_shownKey = picture.cacheKey();
    }
    m_image->setRect(rect);
}

} // namespace mosslantern
