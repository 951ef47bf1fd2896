#include "model/slideshow.h"

#include "model/collection.h"

namespace mosslantern {

Slideshow::Slideshow(std::vector<std::unique_ptr<Slide>> slides, std::optional<AspectRatio> aspectRatio,
                     const QUuid &batchId, const std::optional<QString> &batchName)
    : Record(recordKind)
    , m_createdAt(QDateTime::currentDateTimeUtc())
    , m_aspectRatio(aspectRatio)
    , m_batchId(batchId)
    , m_batchName(batchName)
{
    for (std::unique_ptr<Slide> &slide : slides) {
        slide->setParent(this);
        m_slides.append(slide.release());
    }
}

Slideshow::Slideshow(const StoredIdentity &identity, const QDateTime &createdAt,
                     std::optional<AspectRatio> aspectRatio, Collection *collection, const QUuid &batchId,
                     const std::optional<QString> &batchName)
    : Record(recordKind, identity)
    , m_createdAt(createdAt)
    , m_aspectRatio(aspectRatio)
    , m_collection(collection)
    , m_batchId(batchId)
    , m_batchName(batchName)
{
    if (collection)
        collection->m_slideshows.add(this);
}

Slideshow::~Slideshow()
{
    Notices notices;
    Slideshow::sever(notices);
    announce(notices);
}

void Slideshow::setCollection(Collection *collection)
{
    if (m_collection == collection)
        return;
    Collection *const previous = std::exchange(m_collection, collection);
    if (previous)
        previous->m_slideshows.remove(this);
    if (collection)
        collection->m_slideshows.add(this);
    emit collectionChanged();
    noteFieldChanged();
    if (previous)
        previous->noteSlideshowsChanged();
    if (collection)
        collection->noteSlideshowsChanged();
}

void Slideshow::setCaption(const QString &caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    emit captionChanged();
    noteFieldChanged();
}

QList<Slide *> Slideshow::slidesInOrder() const
{
    QList<Slide *> slides = m_slides;
    std::stable_sort(slides.begin(), slides.end(),
                     [](const Slide *a, const Slide *b) { return a->order() < b->order(); });
    return slides;
}

void Slideshow::repairSlideOrder()
{
    const QList<Slide *> slides = slidesInOrder();
    for (qsizetype i = 1; i < slides.size(); ++i) {
        if (slides[i]->order() == 0)
            slides[i]->setOrder(i);
    }
}

QVariant Slideshow::aspectRatioOrUndefined() const
{
    return m_aspectRatio ? QVariant(static_cast<int>(*m_aspectRatio)) : QVariant();
}

QVariant Slideshow::batchNameOrUndefined() const
{
    return m_batchName ? QVariant(*m_batchName) : QVariant();
}

void Slideshow::noteCollectionGone()
{
    emit collectionChanged();
    noteRelationChanged();
}

void Slideshow::noteSlideGone()
{
    emit slidesChanged();
    noteRelationChanged();
}

void Slideshow::sever(Notices &notices)
{
    if (Collection *const previous = std::exchange(m_collection, nullptr)) {
        previous->m_slideshows.remove(this);
        notices.push_back(
            {this, [](Record *record) { static_cast<Slideshow *>(record)->noteCollectionGone(); }});
        notices.push_back(
            {previous, [](Record *record) { static_cast<Collection *>(record)->noteSlideshowsChanged(); }});
    }
}

void Slideshow::entered()
{
    if (m_collection)
        m_collection->m_slideshows.settle(this);
}

} // namespace mosslantern
