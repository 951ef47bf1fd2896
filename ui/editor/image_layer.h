#pragma once

#include <QtGui/QImage>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

namespace mosslantern {

/// A node that shows `image` with its top left at `at`, both in device pixels, `pixelRatio` of them to a
/// point of the scene.
[[nodiscard]] inline QSGImageNode *makeImageNode(QQuickWindow *window, const QImage &image, QPointF at,
                                                 double pixelRatio)
{
    QSGImageNode *const node = window->createImageNode();
    node->setOwnsTexture(true);
    node->setTexture(window->createTextureFromImage(image));
    node->setFiltering(QSGTexture::Linear);
    node->setRect(QRectF(at / pixelRatio, QSizeF(image.size()) / pixelRatio));
    return node;
}

} // namespace mosslantern
