#include "ui/slide/soft_shadow.h"

#include "render/pixels/continuous_corners.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>

namespace mosslantern {

SoftShadow::SoftShadow(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &SoftShadow::lookChanged, this, [this] { update(); });
}

void SoftShadow::paint(QPainter *painter)
{
    const double ratio = painter->deviceTransform().m11();
    QImage mask((size() * ratio).toSize(), QImage::Format_Alpha8);
    if (mask.isNull())
        return;
    mask.fill(0);
    const QPainterPath outline = continuousRoundedRect(
        boundingRect().adjusted(m_margin, m_margin, -m_margin, -m_margin), m_cornerRadius);
    const auto fillOutline = [&](QImage &image, QPainter::CompositionMode mode) {
        QPainter filling(&image);
        filling.setRenderHint(QPainter::Antialiasing);
        filling.setCompositionMode(mode);
        filling.scale(ratio, ratio);
        filling.fillPath(outline, Qt::black);
    };
    fillOutline(mask, QPainter::CompositionMode_SourceOver);
    QImage shadow(mask.size(), QImage::Format_RGBA8888_Premultiplied);
    shadow.fill(Qt::transparent);
    castShadows(shadow, alphaPlane(mask), {{{0, 0, 0, m_strength}, m_blurRadius, {0, 0}}}, ratio);
    fillOutline(shadow, QPainter::CompositionMode_DestinationOut);
    painter->drawImage(boundingRect(), shadow);
}

} // namespace mosslantern
