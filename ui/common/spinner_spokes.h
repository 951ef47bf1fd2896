#pragma once

#include <QtCore/QBasicTimer>
#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// The spokes of a spinner around the item's centre: one is opaque, those after it, against the clock, ever
/// paler. A picture that is only turned, so that a grid full of them costs little.
class SpinnerSpokes : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY colorChanged)
    /// Whether it goes round from spoke to spoke while it is visible.
    Q_PROPERTY(bool isStepping MEMBER m_isStepping NOTIFY isSteppingChanged)

public:
    explicit SpinnerSpokes(QQuickItem *parent = nullptr);

signals:
    void colorChanged();
    void isSteppingChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void timerEvent(QTimerEvent *event) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    void stepWhileVisible();

    QColor m_color = Qt::black;
    bool m_isStepping = true;
    QBasicTimer m_timer;
};

} // namespace mosslantern
