#pragma once

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace mosslantern {

class WindowLayers;

/// A layer of a window: its screen, a sheet over that, a menu over the sheet. While a layer that covers
/// others is up, no pointer reaches those that were there before it, neither to click, drag, scroll or drop
/// nor to hover. They look as before, go on, and keep the keyboard.
class InputLayer : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether it is up and covers what was there before.
    Q_PROPERTY(bool covers READ covers WRITE setCovers NOTIFY coversChanged)

public:
    explicit InputLayer(QQuickItem *parent = nullptr);
    ~InputLayer() override;

    bool covers() const { return m_covers; }
    void setCovers(bool covers);

    /// Whether pointers are kept away from it.
    bool isShut() const { return m_isShut; }

    bool contains(const QPointF &point) const override;
    QRectF clipRect() const override;

signals:
    void coversChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    friend class WindowLayers;

    void setWindowLayers(WindowLayers *layers);
    void setShut(bool isShut);

    QPointer<WindowLayers> m_layers; // those of its window
    bool m_covers = false;
    bool m_isShut = false;
};

} // namespace mosslantern
