#include "model/collection.h"

namespace mosslantern {

Collection::Collection(const QString &name)
    : Record(recordKind)
    , m_name(name)
    , m_createdAt(QDateTime::currentDateTimeUtc())
{}

Collection::Collection(const StoredIdentity &identity, const QString &name, const QDateTime &createdAt)
    : Record(recordKind, identity)
    , m_name(name)
    , m_createdAt(createdAt)
{}

Collection::~Collection()
{
    Notices notices;
    Collection::sever(notices);
    announce(notices);
}

void Collection::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    emit nameChanged();
    noteFieldChanged();
}

void Collection::noteAssetsChanged()
{
    emit assetsChanged();
    noteRelationChanged();
}

void Collection::noteSlideshowsChanged()
{
    emit slideshowsChanged();
    noteRelationChanged();
}

void Collection::sever(Notices &notices)
{
    for (Asset *asset : m_assets.takeAll()) {
        asset->m_collection = nullptr;
        notices.push_back(
            {asset, [](Record *record) { static_cast<Asset *>(record)->noteCollectionGone(); }});
    }
    for (Slideshow *slideshow : m_slideshows.takeAll()) {
        slideshow->m_collection = nullptr;
        notices.push_back(
            {slideshow, [](Record *record) { static_cast<Slideshow *>(record)->noteCollectionGone(); }});
    }
}

void Collection::entered()
{
    for (Asset *asset : assets())
        asset->noteFieldChanged();
    for (Slideshow *slideshow : slideshows())
        slideshow->noteFieldChanged();
}

} // namespace mosslantern
