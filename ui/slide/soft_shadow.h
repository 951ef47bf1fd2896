#pragma once

#include <QtQuick/QQuickPaintedItem>

namespace mosslantern {

/// The black shadow of a rectangle with continuous corners, around its place in the item: nothing lies below
/// it, so that it may be translucent.
class SoftShadow : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Of the corners, and of the blur, in points.
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius NOTIFY lookChanged)
    Q_PROPERTY(double blurRadius MEMBER m_blurRadius NOTIFY lookChanged)
    /// How far the item reaches beyond the rectangle on every side.
    Q_PROPERTY(double margin MEMBER m_margin NOTIFY lookChanged)
    Q_PROPERTY(double strength MEMBER m_strength NOTIFY lookChanged)

public:
    explicit SoftShadow(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

signals:
    void lookChanged();

private:
    double m_cornerRadius = 0;
    double m_blurRadius = 0;
    double m_margin = 0;
    double m_strength = 1;
};

} // namespace mosslantern
