#include "ui/common/input_mode.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtQuick/QQuickWindow>

namespace mosslantern {

namespace {

bool isModifier(int key)
{
    return key >= Qt::Key_Shift && key <= Qt::Key_Alt;
}

/// Whether a key event comes of a key being held that would do the same thing again.
bool repeatsAnAct(const QObject *receiver, const QKeyEvent &event)
{
    const auto *const window = qobject_cast<const QQuickWindow *>(receiver);
    if (!window || !event.isAutoRepeat())
        return false;
    switch (event.key()) {
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
    case Qt::Key_Backspace: {
        const QQuickItem *const item = window->activeFocusItem();
        return item && !item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    }
    default:
        return false;
    }
}

} // namespace

InputMode::InputMode(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void InputMode::endHover(QQuickItem *item)
{
    if (item->acceptHoverEvents() && item->property("hovered").toBool()) {
        QHoverEvent leave(QEvent::HoverLeave, QPointF(), QPointF(), QPointF());
        QCoreApplication::sendEvent(item, &leave);
    }
    for (QQuickItem *child : item->childItems())
        endHover(child);
}

bool InputMode::eventFilter(QObject *receiver, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyRelease:
        return repeatsAnAct(receiver, *static_cast<QKeyEvent *>(event));
    case QEvent::KeyPress:
        if (repeatsAnAct(receiver, *static_cast<QKeyEvent *>(event)))
            return true;
        [[fallthrough]];
    case QEvent::ShortcutOverride: // all there is of a key that is a shortcut
        if (!isModifier(static_cast<QKeyEvent *>(event)->key()))
            setUsesKeyboard(true);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        setUsesKeyboard(false);
        break;
    default:
        break;
    }
    return false;
}

void InputMode::setUsesKeyboard(bool usesKeyboard)
{
    if (m_usesKeyboard == usesKeyboard)
        return;
    m_usesKeyboard = usesKeyboard;
    emit usesKeyboardChanged();
}

} // namespace mosslantern
