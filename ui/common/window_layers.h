#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

class QQuickWindow;

namespace mosslantern {

class InputLayer;

/// The layers of one window, the lowest first, and which of them pointers reach.
class WindowLayers : public QObject
{
    Q_OBJECT

public:
    /// Those of a window, which owns them.
    static WindowLayers &of(QQuickWindow &window);

    /// A layer that covers others comes on top of those that are there, another one beneath them.
    void put(InputLayer *layer);
    void remove(InputLayer *layer);

    /// Whether the scene is being handed over to be drawn.
    bool isSynchronizing() const { return m_isSynchronizing; }

    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    explicit WindowLayers(QQuickWindow &window);

    void update();
    void endHover();
    void endPress();

    QList<InputLayer *> m_layers;
    bool m_isPressed = false;
    bool m_isSynchronizing = false;
};

} // namespace mosslantern
