#include "ui/common/input_layer.h"

#include "ui/common/window_layers.h"

#include <QtQuick/QQuickWindow>

namespace mosslantern {

InputLayer::InputLayer(QQuickItem *parent)
    : QQuickItem(parent)
{}

InputLayer::~InputLayer()
{
    setWindowLayers(nullptr);
}

void InputLayer::setCovers(bool covers)
{
    if (m_covers == covers)
        return;
    m_covers = covers;
    if (m_layers)
        m_layers->put(this);
    emit coversChanged();
}

// Qt looks for what is under a pointer in every item, wherever it lies, except in those outside of an item
// that clips. So a layer that is shut clips, and has no area.
bool InputLayer::contains(const QPointF &point) const
{
    return !m_isShut && QQuickItem::contains(point);
}

QRectF InputLayer::clipRect() const
{
    // What is drawn is not to be cut off.
    constexpr double everywhere = 1e5;
    if (m_isShut && m_layers && !m_layers->isSynchronizing())
        return {};
    return {-everywhere, -everywhere, 2 * everywhere, 2 * everywhere};
}

void InputLayer::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange)
        setWindowLayers(data.window ? &WindowLayers::of(*data.window) : nullptr);
    QQuickItem::itemChange(change, data);
}

void InputLayer::setWindowLayers(WindowLayers *layers)
{
    if (m_layers)
        m_layers->remove(this);
    m_layers = layers;
    if (m_layers)
        m_layers->put(this);
}

void InputLayer::setShut(bool isShut)
{
    if (m_isShut == isShut)
        return;
    m_isShut = isShut;
    setFlag(ItemClipsChildrenToShape, isShut);
}

} // namespace mosslantern
