#include "ui/common/paste_guard.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>

#include <algorithm>
#include <limits>

namespace mosslantern {

namespace {

/// How much an event would insert into a text; 0 if it inserts nothing at once.
qsizetype insertedBy(const QEvent &event)
{
    const QClipboard *const clipboard = QGuiApplication::clipboard();
    switch (event.type()) {
    case QEvent::KeyPress:
        return static_cast<const QKeyEvent &>(event).matches(QKeySequence::Paste) ? clipboard->text().size()
                                                                                  : 0;
    case QEvent::MouseButtonRelease:
        // What is selected anywhere is inserted by the middle button, where there is such a thing.
        return static_cast<const QMouseEvent &>(event).button() == Qt::MiddleButton &&
                       clipboard->supportsSelection()
                   ? clipboard->text(QClipboard::Selection).size()
                   : 0;
    case QEvent::InputMethod:
        return static_cast<const QInputMethodEvent &>(event).commitString().size();
    default:
        return 0;
    }
}

} // namespace

void PasteGuard::setTarget(QQuickItem *target)
{
    if (m_target == target)
        return;
    if (m_target)
        m_target->removeEventFilter(this);
    m_target = target;
    if (m_target)
        m_target->installEventFilter(this);
    emit targetChanged();
}

bool PasteGuard::eventFilter(QObject *, QEvent *event)
{
    const qsizetype inserted = insertedBy(*event);
    if (inserted == 0 || !refuses(inserted, event->type() == QEvent::InputMethod))
        return false;
    event->accept();
    return true;
}

bool PasteGuard::refuses(qsizetype inserted, bool isTyped)
{
    const auto number = [this](const char *name) { return m_target->property(name).toLongLong(); };
    const qint64 kept = number("length") - (number("selectionEnd") - number("selectionStart"));
    // A text that is too long already can still be typed in.
    const qint64 length = isTyped ? inserted : kept + inserted;
    if (length <= m_limit)
        return false;
    emit refused(static_cast<int>(std::min<qint64>(length, std::numeric_limits<int>::max())));
    return true;
}

} // namespace mosslantern
