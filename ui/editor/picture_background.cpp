#include "ui/editor/picture_background.h"

#include "render/pixels/pixels.h"
#include "ui/editor/image_layer.h"

namespace mosslantern {

namespace {

QImage plain(const RgbaColor &color)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(toColor(color));
    return image;
}

} // namespace

PictureBackground::PictureBackground(QQuickItem *parent)
    : QQuickItem(parent)
    , m_picture(*this, CanvasPicture::Turn::first)
{
    setFlag(ItemHasContents);
    connect(&m_picture, &CanvasPicture::changed, this, [this] {
        reload();
        emit isLoadedChanged();
    });
}

void PictureBackground::setCanvasSize(QSizeF size)
{
    if (m_canvasSize == size)
        return;
    m_canvasSize = size;
    reload();
    emit canvasSizeChanged();
}

void PictureBackground::componentComplete()
{
    QQuickItem::componentComplete();
    reload();
}

void PictureBackground::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        reload();
}

void PictureBackground::reload()
{
    if (isComponentComplete() && window())
        polish();
}

void PictureBackground::updatePolish()
{
    if (m_canvasSize.isEmpty())
        return;
    const QString path = picturePath();
    const bool wasLoaded = isLoaded();
    m_picture.show(path, Canvas{m_canvasSize, window()->effectiveDevicePixelRatio()}.pixelSize());
    const auto fill = m_picture.fill();
    m_image = fill ? fill->image : plain(path.isEmpty() ? noPicture() : missingPictureColor);
    m_imageIsNew = true;
    update();
    if (wasLoaded != isLoaded())
        emit isLoadedChanged();
}

QSGNode *PictureBackground::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *imageNode = static_cast<QSGImageNode *>(node);
    if (m_image.isNull())
        return imageNode;
    if (!imageNode || m_imageIsNew) {
        delete imageNode;
        imageNode = makeImageNode(window(), m_image, {}, 1);
        imageNode->setFiltering(QSGTexture::Linear);
        m_imageIsNew = false;
    }
    imageNode->setRect(boundingRect());
    return imageNode;
}

} // namespace mosslantern
