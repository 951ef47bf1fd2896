#include "app/gui/edit_commands.h"

namespace mosslantern {

void EditCommands::capture(QQuickItem *focusItem)
{
    // Text items of Qt Quick share these by name, not by type.
    const bool isText = focusItem && focusItem->metaObject()->indexOfProperty("selectedText") >= 0;
    m_text = isText ? focusItem : nullptr;
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

void EditCommands::deleteSelection()
{
    if (canCut()) {
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
