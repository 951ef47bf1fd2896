#include "app/gui/edit_commands.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace mosslantern {

namespace {

/// The list or grid that an item is in, or is itself.
QQuickItem *listAround(QQuickItem *item)
{
    while (item && item->metaObject()->indexOfProperty("canRemove") < 0)
        item = item->parentItem();
    return item;
}

} // namespace

void EditCommands::capture(QQuickItem *focusItem)
{
    // Text items of Qt Quick share these by name, not by type.
    const bool isText = focusItem && focusItem->metaObject()->indexOfProperty("selectedText") >= 0;
    m_text = isText ? focusItem : nullptr;
    m_list = isText ? nullptr : listAround(focusItem);
    emit captured();
}

bool EditCommands::canCopy() const
{
    return m_text && !m_text->property("selectedText").toString().isEmpty();
}

bool EditCommands::canSelectAll() const
{
    return m_text && m_text->property("length").toInt() > 0;
}

bool EditCommands::canDelete() const
{
    return canCut() || (m_list && m_list->property("canRemove").toBool());
}

void EditCommands::paste()
{
    if (!m_text)
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QCoreApplication::sendEvent(m_text, &press);
}

void EditCommands::deleteSelection()
{
    if (m_list) {
        QMetaObject::invokeMethod(m_list, "removeCurrent");
    } else if (canCut()) {
        QMetaObject::invokeMethod(m_text, "remove", Q_ARG(int, m_text->property("selectionStart").toInt()),
                                  Q_ARG(int, m_text->property("selectionEnd").toInt()));
    }
}

void EditCommands::run(const char *operation)
{
    if (m_text)
        QMetaObject::invokeMethod(m_text, operation);
}

} // namespace mosslantern
