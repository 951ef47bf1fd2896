#include "ui/slide/picture_background.h"

#include "model/change.h"
#include "render/pixels/pixels.h"

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
    : DrawnItem(parent)
    , m_picture(*this, CanvasPicture::Turn::first)
{
    connect(&m_picture, &CanvasPicture::changed, this, [this] {
        redraw();
        emit isLoadedChanged();
    });
}

void PictureBackground::setCanvasSize(QSizeF size)
{
    if (change(*this, m_canvasSize, size, &PictureBackground::canvasSizeChanged))
        redraw();
}

std::vector<PlacedImage> PictureBackground::draw(double pixelRatio)
{
    if (m_canvasSize.isEmpty())
        return {};
    const QString path = picturePath();
    const bool wasLoaded = isLoaded();
    m_picture.show(path, Canvas{m_canvasSize, pixelRatio}.pixelSize());
    if (wasLoaded != isLoaded())
        emit isLoadedChanged();
    const auto fill = m_picture.fill();
    return {{fill ? fill->image : plain(path.isEmpty() ? noPicture() : missingPictureColor), boundingRect()}};
}

} // namespace mosslantern
