#include "ui/common/window_layers.h"

#include "ui/common/input_layer.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtQuick/QQuickWindow>

namespace mosslantern {

WindowLayers &WindowLayers::of(QQuickWindow &window)
{
    auto *const layers = window.findChild<WindowLayers *>({}, Qt::FindDirectChildrenOnly);
    return layers ? *layers : *new WindowLayers(window);
}

WindowLayers::WindowLayers(QQuickWindow &window)
    : QObject(&window)
{
    // Before anything that takes events of the window away.
    QCoreApplication::instance()->installEventFilter(this);
    // In the thread that draws, while this one waits.
    const auto note = [this](auto signal, bool isSynchronizing) {
        connect(
            static_cast<QQuickWindow *>(parent()), signal, this,
            [this, isSynchronizing] { m_isSynchronizing = isSynchronizing; }, Qt::DirectConnection);
    };
    note(&QQuickWindow::beforeSynchronizing, true);
    note(&QQuickWindow::afterSynchronizing, false);
}

void WindowLayers::put(InputLayer *layer)
{
    m_layers.removeOne(layer);
    if (layer->covers())
        m_layers.append(layer);
    else
        m_layers.prepend(layer);
    update();
}

void WindowLayers::remove(InputLayer *layer)
{
    m_layers.removeOne(layer);
    layer->setShut(false);
    update();
}

void WindowLayers::update()
{
    bool isCovered = false;
    for (auto layer = m_layers.crbegin(); layer != m_layers.crend(); ++layer) {
        // A press that has closed a layer is not to end on what lay beneath it.
        if (isCovered && !(*layer)->isShut())
            QMetaObject::invokeMethod(this, &WindowLayers::endHover, Qt::QueuedConnection);
        if (isCovered || !m_isPressed)
            (*layer)->setShut(isCovered);
        isCovered = isCovered || (*layer)->covers();
    }
}

bool WindowLayers::eventFilter(QObject *receiver, QEvent *event)
{
    if (receiver != parent())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        m_isPressed = true;
        break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->buttons() == Qt::NoButton)
            endPress();
        break;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        endPress();
        break;
    default:
        break;
    }
    return false;
}

void WindowLayers::endHover()
{
    // What a pointer can no longer reach learns of it with the next movement, which may be far off.
    const QPointF outside(-1, -1);
    QHoverEvent move(QEvent::HoverMove, outside, outside, outside);
    QCoreApplication::sendEvent(parent(), &move);
}

void WindowLayers::endPress()
{
    if (!m_isPressed)
        return;
    // After the event has reached what it is for.
    const auto end = [this] {
        m_isPressed = false;
        update();
    };
    QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
}

} // namespace mosslantern
