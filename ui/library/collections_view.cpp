#include "ui/library/collections_view.h"

#include "ui/library/list_selection.h"

namespace mosslantern {

CollectionsView::CollectionsView(QObject *parent)
    : QObject(parent)
{}

void CollectionsView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_collections.emplace(context->store(), nullptr, newestFirst<Collection>);
    emit contextChanged();
}

void CollectionsView::setSelectedCollection(Collection *collection)
{
    if (m_selectedCollection == collection)
        return;
    disconnect(m_selectedRemoved);
    m_selectedCollection = collection;
    if (collection) {
        m_selectedRemoved =
            connect(collection, &Record::removed, this, [this] { setSelectedCollection(nullptr); });
    }
    emit selectedCollectionChanged();
}

void CollectionsView::moveSelection(int by)
{
    setSelectedCollection(movedSelection(*m_collections, m_selectedCollection, by));
}

int CollectionsView::rowOf(const Collection *collection) const
{
    return m_collections->indexOf(collection);
}

void CollectionsView::setIsCreatingCollection(bool isCreating)
{
    if (m_isCreatingCollection == isCreating)
        return;
    m_isCreatingCollection = isCreating;
    emit isCreatingCollectionChanged();
}

void CollectionsView::setNewCollectionName(const QString &name)
{
    if (m_newCollectionName == name)
        return;
    m_newCollectionName = name;
    emit newCollectionNameChanged();
}

void CollectionsView::createCollection()
{
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
