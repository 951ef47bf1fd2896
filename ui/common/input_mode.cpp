#include "ui/common/input_mode.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace mosslantern {

namespace {

bool isModifier(int key)
{
    return key >= Qt::Key_Shift && key <= Qt::Key_Alt;
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

bool InputMode::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
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
