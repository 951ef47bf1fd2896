#include "ui/common/symbol.h"

#include "ui/common/symbol_drawing.h"

#include <QtGui/QPainter>

namespace mosslantern {

Symbol::Symbol(QQuickItem *parent)
    : PaintedItem(parent)
{
    setSize(16);
}

void Symbol::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    update();
    emit nameChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void Symbol::paint(QPainter *painter)
{
    const QSizeF pixels = painter->deviceTransform().mapRect(boundingRect()).size();
    painter->drawImage(boundingRect(), drawSymbol(m_name, pixels.toSize(), m_color));
}

} // namespace mosslantern
