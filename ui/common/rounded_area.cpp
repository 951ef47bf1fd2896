#include "ui/common/rounded_area.h"

#include "render/pixels/continuous_corners.h"

#include <QtGui/QPainter>

namespace mosslantern {

RoundedArea::RoundedArea(QQuickItem *parent)
    : PaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &RoundedArea::lookChanged, this, [this] { update(); });
}

void RoundedArea::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(continuousRoundedRect(boundingRect(), m_radius), m_color);
    if (m_borderWidth <= 0)
        return;
    const double inset = m_borderWidth / 2;
    QPen pen(m_borderColor, m_borderWidth, Qt::SolidLine, Qt::FlatCap);
    if (!m_dashes.isEmpty()) {
        QList<qreal> inPenWidths = m_dashes;
        for (qreal &length : inPenWidths)
            length /= m_borderWidth;
        pen.setDashPattern(inPenWidths);
    }
    painter->strokePath(
        continuousRoundedRect(boundingRect().adjusted(inset, inset, -inset, -inset), m_radius - inset), pen);
}

} // namespace mosslantern
