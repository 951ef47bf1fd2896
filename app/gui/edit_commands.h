#pragma once

#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// The commands of the Edit menu, for what had the keyboard when the menu opened: a text, or a list or grid
/// whose current item can be removed.
class EditCommands : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY captured)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY captured)
    Q_PROPERTY(bool canCut READ canCut NOTIFY captured)
    Q_PROPERTY(bool canCopy READ canCopy NOTIFY captured)
    Q_PROPERTY(bool canDelete READ canDelete NOTIFY captured)
    Q_PROPERTY(bool canPaste READ canPaste NOTIFY captured)
    Q_PROPERTY(bool canSelectAll READ canSelectAll NOTIFY captured)

public:
    explicit EditCommands(QObject *parent = nullptr)
        : QObject(parent)
    {}

    /// Takes the item that has the keyboard now, which may be neither.
    Q_INVOKABLE void capture(QQuickItem *focusItem);

    /// Whether the commands do anything for what was captured.
    bool canUndo() const { return flag("canUndo"); }
    bool canRedo() const { return flag("canRedo"); }
    bool canCut() const { return canCopy() && !flag("readOnly"); }
    bool canCopy() const;
    bool canDelete() const;
    bool canPaste() const { return flag("canPaste"); }
    bool canSelectAll() const;

    /// What the text itself does on the keys for it.
    Q_INVOKABLE void undo() { run("undo"); }
    Q_INVOKABLE void redo() { run("redo"); }
    Q_INVOKABLE void cut() { run("cut"); }
    Q_INVOKABLE void copy() { run("copy"); }
    /// By its key, which is what guards the length of a text.
    Q_INVOKABLE void paste();
    Q_INVOKABLE void selectAll() { run("selectAll"); }
    /// Removes the selected text, or asks the list to remove its current item.
    Q_INVOKABLE void deleteSelection();

signals:
    void captured();

private:
    bool flag(const char *property) const { return m_text && m_text->property(property).toBool(); }
    void run(const char *operation);

    QPointer<QQuickItem> m_text;
    QPointer<QQuickItem> m_list;
};

} // namespace mosslantern
