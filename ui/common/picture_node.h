#pragma once

#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

#include <memory>

namespace mosslantern {

/// Shows a picture in a rectangle. Nodes of one window that show copies of one picture share its texture.
class PictureNode : public QSGNode
{
public:
    PictureNode(QQuickWindow *window, QSGTexture::Filtering filtering);

    /// The rectangle is in the item's points.
    void show(const QImage &picture, const QRectF &rect);

private:
    QQuickWindow *m_window;
    QSGImageNode *m_image; // a child
    std::shared_ptr<QSGTexture> m_texture;
    qint64 m_shownKey = 0;
};

} // namespace mosslantern
