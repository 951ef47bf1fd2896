#include "ui/library/collection_detail_view.h"

#include "model/change.h"

namespace mosslantern {

CollectionDetailView::CollectionDetailView(QObject *parent)
    : QObject(parent)
{}

void CollectionDetailView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    emit contextChanged();
    makeQueries();
}

void CollectionDetailView::setCollection(Collection *collection)
{
    // The screen lets go of a record that is destroyed.
    if (!collection)
        return;
    Q_ASSERT(!m_collection);
    m_collection = collection;
    makeQueries();
}

void CollectionDetailView::makeQueries()
{
    if (!m_context || !m_collection)
        return;
    const Collection *const collection = m_collection;
    m_members.emplace(m_context->store(),
                      [collection](const Asset &asset) { return asset.collection() == collection; });
    m_availableAssets.emplace(m_context->store(),
                              [collection](const Asset &asset) { return asset.collection() != collection; });
    m_picks.emplace(*m_availableAssets);
    connect(&*m_picks, &AssetPickModel::tickedChanged, this, &CollectionDetailView::selectedAssetIDsChanged);
    emit collectionChanged();
}

void CollectionDetailView::setIsAddingAssets(bool isAdding)
{
    change(*this, m_isAddingAssets, isAdding, &CollectionDetailView::isAddingAssetsChanged);
}

void CollectionDetailView::toggle(Asset *asset)
{
    m_picks->toggle(asset->id());
}

void CollectionDetailView::addSelected()
{
    for (Asset *asset : m_availableAssets->records()) {
        if (selectedAssetIDs().contains(asset->id()))
            asset->setCollection(m_collection);
    }
    cancelAdding();
}

void CollectionDetailView::cancelAdding()
{
    m_picks->clear();
    setIsAddingAssets(false);
}

void CollectionDetailView::removeFromCollection(Asset *asset)
{
    asset->setCollection(nullptr);
}

} // namespace mosslantern
