#include "model/asset.h"

#include "model/collection.h"
#include "model/slide.h"
#include "model/store.h"

namespace mosslantern {

Asset::Asset(const QString &filename, const QString &name, Collection *collection)
    : Record(recordKind)
    , m_filename(filename)
    , m_name(name)
{
    setCollection(collection);
}

Asset::Asset(const StoredIdentity &identity, const QString &filename, const QString &name,
             Collection *collection)
    : Record(recordKind, identity)
    , m_filename(filename)
    , m_name(name)
    , m_collection(collection)
{
    if (collection)
        collection->m_assets.add(this);
}

Asset::~Asset()
{
    Notices notices;
    Asset::sever(notices);
    announce(notices);
}

void Asset::setCollection(Collection *collection)
{
    if (m_collection == collection)
        return;
    Collection *const previous = std::exchange(m_collection, collection);
    if (previous)
        previous->m_assets.remove(this);
    if (collection)
        collection->m_assets.add(this);
    emit collectionChanged();
    noteFieldChanged();
    if (previous)
        previous->noteAssetsChanged();
    if (collection)
        collection->noteAssetsChanged();
}

QUrl Asset::fileURL() const
{
    const QString folder = store() ? store()->location().assetFolder() : QString();
    return folder.isEmpty() ? QUrl() : QUrl::fromLocalFile(folder + u'/' + m_filename);
}

void Asset::noteCollectionGone()
{
    emit collectionChanged();
    noteRelationChanged();
}

void Asset::sever(Notices &notices)
{
    if (Collection *const previous = std::exchange(m_collection, nullptr)) {
        previous->m_assets.remove(this);
        notices.push_back({this, [](Record *record) { static_cast<Asset *>(record)->noteCollectionGone(); }});
        notices.push_back(
            {previous, [](Record *record) { static_cast<Collection *>(record)->noteAssetsChanged(); }});
    }
    for (Slide *slide : std::exchange(m_slides, {})) {
        slide->m_asset = nullptr;
        notices.push_back({slide, [](Record *record) { static_cast<Slide *>(record)->noteAssetGone(); }});
    }
}

void Asset::entered()
{
    if (m_collection)
        m_collection->m_assets.settle(this);
    for (Slide *slide : m_slides)
        slide->noteFieldChanged();
    emit fileURLChanged();
}

} // namespace mosslantern
