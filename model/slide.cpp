#include "model/slide.h"

#include "model/asset.h"
#include "model/image_files.h"
#include "model/slide_preset.h"
#include "model/slideshow.h"
#include "model/store.h"

namespace mosslantern {

Slide::Slide(Asset *asset, const QString &text, const QString &subtitle, TextStyle textStyle, qint64 order)
    : StyledRecord(recordKind, {.textStyle = textStyle})
    , m_text(text)
    , m_subtitle(subtitle)
    , m_order(order)
    , m_imageFilename(copySlideImage(*asset))
    , m_asset(asset)
{
    m_asset->m_slides.push_back(this);
}

Slide::Slide(const StoredIdentity &identity, const SlideStyle &style, const QString &text,
             const QString &subtitle, qint64 order, const std::optional<QString> &imageFilename, Asset *asset)
    : StyledRecord(recordKind, identity, style)
    , m_text(text)
    , m_subtitle(subtitle)
    , m_order(order)
    , m_imageFilename(imageFilename)
    , m_asset(asset)
{
    if (m_asset)
        m_asset->m_slides.push_back(this);
}

Slide::~Slide()
{
    if (m_asset)
        std::erase(m_asset->m_slides, this);
}

void Slide::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    emit textChanged();
    noteFieldChanged();
}

void Slide::setSubtitle(const QString &subtitle)
{
    if (m_subtitle == subtitle)
        return;
    m_subtitle = subtitle;
    emit subtitleChanged();
    noteFieldChanged();
}

void Slide::setOrder(qint64 order)
{
    if (m_order == order)
        return;
    m_order = order;
    emit orderChanged();
    noteFieldChanged();
}

QUrl Slide::imageURL() const
{
    if (m_imageFilename) {
        // Before the slide is inserted, its image stands where its asset's store keeps such images.
        const Store *const home = store() ? store() : m_asset ? m_asset->store() : nullptr;
        const QString folder = home ? home->location().slideImageFolder() : QString();
        return folder.isEmpty() ? QUrl() : QUrl::fromLocalFile(folder + u'/' + *m_imageFilename);
    }
    return m_asset ? m_asset->fileURL() : QUrl();
}

void Slide::applyPreset(const SlidePreset &preset)
{
    setStyle(preset.style());
}

void Slide::noteAssetGone()
{
    emit assetChanged();
    emit imageURLChanged();
    noteRelationChanged();
}

void Slide::sever(Notices &notices)
{
    if (auto *const slideshow = qobject_cast<Slideshow *>(parent())) {
        slideshow->m_slides.removeOne(this);
        notices.push_back(
            {slideshow, [](Record *record) { static_cast<Slideshow *>(record)->noteSlideGone(); }});
    }
}

void Slide::entered()
{
    emit imageURLChanged();
}

} // namespace mosslantern
