#pragma once

#include "ui/common/painted_item.h"

#include <QtGui/QColor>

namespace mosslantern {

/// A rectangle with continuous corners, filled and bordered; the border lies inside the edge.
class RoundedArea : public mosslantern::PaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY lookChanged)
    Q_PROPERTY(double borderWidth MEMBER m_borderWidth NOTIFY lookChanged)
    /// Points on, points off; empty for a solid border.
    Q_PROPERTY(QList<qreal> dashes MEMBER m_dashes NOTIFY lookChanged)

public:
    explicit RoundedArea(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

signals:
    void lookChanged();

private:
    double m_radius = 0;
    QColor m_color = Qt::transparent;
    QColor m_borderColor = Qt::transparent;
    double m_borderWidth = 0;
    QList<qreal> m_dashes;
};

} // namespace mosslantern
