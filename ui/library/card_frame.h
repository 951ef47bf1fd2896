#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// A part of a card of any size, stretched from a small picture: the edges of its body, with the bar at the
/// bottom and the shadow around it, or the border that lies over all. The middle is left to what the card
/// shows.
class CardFrame : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Part part MEMBER m_part NOTIFY lookChanged)
    /// Between 0, as the card lies, and 1, raised by the pointer; the body's shadow grows with it.
    Q_PROPERTY(double lift MEMBER m_lift NOTIFY lookChanged)
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    Q_PROPERTY(QColor barColor MEMBER m_barColor NOTIFY lookChanged)
    Q_PROPERTY(double barHeight MEMBER m_barHeight NOTIFY lookChanged)

public:
    enum class Part { Body, Border };
    Q_ENUM(Part)

    explicit CardFrame(QQuickItem *parent = nullptr);

signals:
    void lookChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QImage drawn(double pixelRatio) const;
    void drawBody(QImage &image, const QRectF &card, double pixelRatio) const;

    Part m_part = Part::Body;
    double m_lift = 0;
    double m_radius = 0;
    QColor m_color = Qt::transparent;
    QColor m_barColor = Qt::transparent;
    double m_barHeight = 0;
};

} // namespace mosslantern
