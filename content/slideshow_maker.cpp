#include "content/slideshow_maker.h"

#include "model/asset.h"
#include "model/slide.h"
#include "model/slideshow.h"
#include "model/store.h"

#include <QtCore/QHash>

#include <limits>
#include <random>

namespace mosslantern {

Asset *PictureSource::draw() const
{
    std::uniform_int_distribution<int> place(0, static_cast<int>(assets.size()) - 1);
    return assets[static_cast<size_t>(place(*random))];
}

qint64 truncatedCount(double count)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    if (!(count >= 1))
        return 0;
    return count < static_cast<double>(most) ? static_cast<qint64>(count) : most;
}

QList<SlideText> slideTexts(const QString &content, double slideCount)
{
    const QList<SlideText> entries = parseSlideContent(content);
    return entries.first(qMin(truncatedCount(slideCount), qint64(entries.size())));
}

Slideshow *makeSlideshow(const QString &content, const SlideshowSettings &settings,
                         const PictureSource &pictures, const QUuid &batchId, const QString &batchName,
                         Store &store)
{
    const QList<SlideText> texts = slideTexts(content, settings.slideCount);
    const auto chosenFor = [&chosen = settings.pictures](qsizetype slide) {
        return size_t(slide) < chosen.size() ? chosen[size_t(slide)] : nullptr;
    };
    bool draws = false;
    for (qsizetype i = 0; i < texts.size(); ++i)
        draws |= !chosenFor(i);
    if (texts.isEmpty() || (draws && pictures.isEmpty()))
        return nullptr;
    std::vector<std::unique_ptr<Slide>> slides;
    for (const SlideText &text : texts) {
        const auto order = static_cast<qint64>(slides.size());
        Asset *const chosen = chosenFor(order);
        auto slide = std::make_unique<Slide>(chosen ? chosen : pictures.draw(), text.main, text.subtitle,
                                             settings.style.textStyle, order);
        slide->setStyle(settings.style);
        slides.push_back(std::move(slide));
    }
    auto slideshow = std::make_unique<Slideshow>(std::move(slides), settings.aspectRatio, batchId, batchName);
    slideshow->setCaption(settings.caption.isEmpty() ? captionOf(content) : settings.caption);
    return store.insert(std::move(slideshow));
}

GeneratedBatch makeBatch(const QString &name, const std::vector<SlideshowPlan> &plans,
                         const PictureSource &pictures, Store &store, const GenerationProgress &goesOn)
{
    GeneratedBatch batch{.name = name, .slideshows = {}};
    QHash<QString, QUuid> ids{{name, batch.id}};
    qsizetype done = 0;
    for (const SlideshowPlan &plan : plans) {
        const QString &batchName = plan.batchName.isEmpty() ? name : plan.batchName;
        QUuid &id = ids[batchName];
        if (id.isNull())
            id = QUuid::createUuid();
        if (Slideshow *const made =
                makeSlideshow(plan.content, plan.settings, pictures, id, batchName, store))
            batch.slideshows.append(made);
        if (!goesOn(++done, qsizetype(plans.size())))
            break;
    }
    return batch;
}

} // namespace mosslantern
