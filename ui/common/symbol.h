#pragma once

#include "ui/common/painted_item.h"

#include <QtGui/QColor>

namespace mosslantern {

/// A system symbol by its name, in one colour. As large as `size` by itself.
class Symbol : public mosslantern::PaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged REQUIRED)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(double size READ implicitWidth WRITE setSize NOTIFY implicitWidthChanged)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    QString name() const { return m_name; }
    void setName(const QString &name);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    /// Side in points, 16 at first.
    void setSize(double size) { setImplicitSize(size, size); }

    void paint(QPainter *painter) override;

signals:
    void nameChanged();
    void colorChanged();

private:
    QString m_name;
    QColor m_color = Qt::white;
};

} // namespace mosslantern
