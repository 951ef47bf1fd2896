#include "ui/library/collections_view.h"

#include "model/change.h"

namespace mosslantern {

CollectionsView::CollectionsView(QObject *parent)
    : QObject(parent)
{}

void CollectionsView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_collections.emplace(context->store(), nullptr, newestFirst<Collection>);
    m_selection.emplace(*m_collections);
    connect(&*m_selection, &ListSelection::changed, this, &CollectionsView::selectedCollectionChanged);
    emit contextChanged();
}

Collection *CollectionsView::selectedCollection() const
{
    return m_selection ? static_cast<Collection *>(m_selection->record()) : nullptr;
}

int CollectionsView::rowOf(const Collection *collection) const
{
    return m_collections->indexOf(collection);
}

void CollectionsView::setIsCreatingCollection(bool isCreating)
{
    change(*this, m_isCreatingCollection, isCreating, &CollectionsView::isCreatingCollectionChanged);
}

void CollectionsView::setNewCollectionName(const QString &name)
{
    change(*this, m_newCollectionName, name, &CollectionsView::newCollectionNameChanged);
}

void CollectionsView::createCollection()
{
    if (!m_isCreatingCollection)
        return;
    m_context->store().insert(std::make_unique<Collection>(m_newCollectionName));
    cancelCreation();
}

void CollectionsView::cancelCreation()
{
    setNewCollectionName({});
    setIsCreatingCollection(false);
}

void CollectionsView::deleteCollections(const QList<int> &positions)
{
    QList<Collection *> shown;
    for (const int position : positions) {
        if (position >= 0 && position < m_collections->count())
            shown.append(m_collections->at(position));
    }
    for (Collection *collection : shown)
        m_context->store().remove(collection);
}

} // namespace mosslantern
