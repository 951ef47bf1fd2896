#include "ui/common/input_mode.h"

#include "model/change.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/QQuickItem>
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

bool InputMode::eventFilter(QObject *receiver, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyRelease: {
        const auto &release = *static_cast<QKeyEvent *>(event);
        if (release.key() == m_key)
            m_releaseTime = release.timestamp();
        return repeatsAnAct(receiver, release);
    }
    case QEvent::KeyPress:
        return filterPress(receiver, *static_cast<QKeyEvent *>(event));
    case QEvent::ShortcutOverride: // all there is of a key that is a shortcut
        notePress(*static_cast<QKeyEvent *>(event));
        break;
    case QEvent::Shortcut:
        return m_isHeld && !receiver->property("autoRepeat").toBool();
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        setUsesKeyboard(false);
        emit pressed();
        break;
    default:
        break;
    }
    return false;
}

void InputMode::notePress(const QKeyEvent &event)
{
    // X11 repeats a held key as a release and a press of the same time, and Qt does not mark all of them.
    constexpr quint64 shortestDelay = 100;
    const bool isTwin = event.key() == m_key && event.timestamp() == m_releaseTime &&
                        event.timestamp() - m_pressTime >= shortestDelay;
    m_isHeld = event.isAutoRepeat() || isTwin;
    if (!m_isHeld) {
        m_key = event.key();
        m_pressTime = event.timestamp();
    }
    if (!isModifier(event.key()))
        setUsesKeyboard(true);
    emit pressed();
}

bool InputMode::filterPress(QObject *receiver, QKeyEvent &event)
{
    notePress(event);
    if (!m_isHeld || event.isAutoRepeat())
        return repeatsAnAct(receiver, event);
    QKeyEvent marked(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                     event.nativeVirtualKey(), event.nativeModifiers(), event.text(), true,
                     quint16(event.count()), event.device());
    marked.setTimestamp(event.timestamp());
    QCoreApplication::sendEvent(receiver, &marked);
    event.setAccepted(marked.isAccepted());
    return true;
}

void InputMode::setUsesKeyboard(bool usesKeyboard)
{
    change(*this, m_usesKeyboard, usesKeyboard, &InputMode::usesKeyboardChanged);
}

} // namespace mosslantern
