#pragma once

#include <QtQuick/QQuickItem>

namespace mosslantern {

/// What shows a canvas: of as many whole pixels as its picture, at the place nearest to `frame`.
class CanvasArea : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The canvas in the parent, in points.
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged REQUIRED)

public:
    explicit CanvasArea(QQuickItem *parent = nullptr);

    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF &frame);

    /// A point larger than the canvas, for a CanvasFrame lies around it: Qt's software renderer clips at
    /// whole points, which would take a pixel from the canvas.
    QRectF clipRect() const override;

signals:
    void frameChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void cover();

    QRectF m_frame;
};

} // namespace mosslantern
