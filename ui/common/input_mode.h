#pragma once

#include <QtCore/QObject>
#include <QtGui/QKeyEvent>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// Which kind of device was used last: what has the keyboard is marked for those who use the keyboard. Of a
/// key that is held down, what acts once is passed on once: Escape, outside of texts Space, Return and
/// Delete, and shortcuts that do not repeat. To be made before the first event.
class InputMode : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// True before anything has been used.
    Q_PROPERTY(bool usesKeyboard READ usesKeyboard NOTIFY usesKeyboardChanged)

public:
    explicit InputMode(QObject *parent = nullptr);

    bool usesKeyboard() const { return m_usesKeyboard; }

    bool eventFilter(QObject *receiver, QEvent *event) override;

signals:
    void usesKeyboardChanged();

    /// A button, a key or the screen has been pressed.
    void pressed();

private:
    void setUsesKeyboard(bool usesKeyboard);
    void notePress(const QKeyEvent &event);
    bool filterPress(QObject *receiver, QKeyEvent &event);

    bool m_usesKeyboard = true;
    // Of the key that was pressed last; milliseconds of the window system's clock.
    int m_key = 0;
    quint64 m_pressTime = 0;
    quint64 m_releaseTime = 0;
    bool m_isHeld = false;
};

} // namespace mosslantern
