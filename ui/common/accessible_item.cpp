#include "ui/common/accessible_item.h"

#include <QtGui/QAccessible>
#include <QtQuick/QQuickItem>

namespace mosslantern {

namespace {

/// What Qt makes of an item, but for what is said above.
class AccessibleItem : public QAccessibleInterface
{
public:
    /// `made` belongs to Qt and lives as long as the item.
    AccessibleItem(QQuickItem *item, QAccessibleInterface *made)
        : m_item(item)
        , m_made(made)
    {}

    [[nodiscard]] bool isValid() const override { return m_item && m_made->isValid(); }
    [[nodiscard]] QObject *object() const override { return m_item; }
    [[nodiscard]] QWindow *window() const override { return m_made->window(); }
    [[nodiscard]] QAccessibleInterface *parent() const override { return m_made->parent(); }
    [[nodiscard]] QAccessibleInterface *child(int index) const override { return m_made->child(index); }
    [[nodiscard]] int childCount() const override { return m_made->childCount(); }
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override { return m_made->childAt(x, y); }
    int indexOfChild(const QAccessibleInterface *child) const override { return m_made->indexOfChild(child); }
    [[nodiscard]] QRect rect() const override { return m_made->rect(); }
    [[nodiscard]] QAccessible::Role role() const override { return m_made->role(); }
    [[nodiscard]] QList<std::pair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override
    {
        return m_made->relations(match);
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = m_made->state();
        if (isDisabled()) {
            state.disabled = true;
            state.focusable = false;
        }
        return state;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value && isSecret() ? QString() : m_made->text(kind);
    }
    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (!isDisabled())
            m_made->setText(kind, text);
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        const bool acts = type == QAccessible::ActionInterface || type == QAccessible::ValueInterface;
        const bool reads = type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface;
        if ((acts && isDisabled()) || (reads && isSecret()))
            return nullptr;
        return m_made->interface_cast(type);
    }

private:
    [[nodiscard]] bool isDisabled() const { return m_item && !m_item->isEnabled(); }
    [[nodiscard]] bool isSecret() const { return m_made->state().passwordEdit; }

    QPointer<QQuickItem> m_item;
    QAccessibleInterface *m_made;
};

void tellWhenEnabled(QQuickItem *item)
{
    QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
        QAccessible::State changed;
        changed.disabled = true;
        QAccessibleStateChangeEvent event(item, changed);
        QAccessible::updateAccessibility(&event);
    });
}

QAccessibleInterface *makeAccessibleItem(const QString & /*className*/, QObject *object)
{
    static const QObject *beingMade = nullptr;
    auto *const item = qobject_cast<QQuickItem *>(object);
    if (!item || beingMade == item)
        return nullptr;
    const QObject *const before = std::exchange(beingMade, item);
    QAccessibleInterface *const made = QAccessible::queryAccessibleInterface(item);
    beingMade = before;
    if (!made)
        return nullptr;
    tellWhenEnabled(item);
    return new AccessibleItem(item, made);
}

} // namespace

void installAccessibleItems()
{
    QAccessible::installFactory(makeAccessibleItem);
}

} // namespace mosslantern
