#include "app/cli/batch_generation.h"

#include "app/cli/ai_request.h"
#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/picture_choice.h"
#include "app/cli/progress.h"
#include "content/batch_name.h"
#include "content/slide_documents.h"
#include "content/slideshow_maker.h"
#include "model/asset.h"
#include "model/collection.h"
#include "model/slideshow.h"
#include "model/store.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The pictures of `collection`, or all when it is null, in the library's order.
std::vector<Asset *> assetsOf(const Collection *collection, Store &store)
{
    std::vector<Asset *> assets = store.all<Asset>();
    if (collection)
        std::erase_if(assets, [&](const Asset *asset) { return asset->collection() != collection; });
    return assets;
}

/// What pictures are drawn from. Fails when there are none and what is requested names none either.
Result<std::vector<Asset *>> picturesFor(const BatchRequest &request, const Collection *collection,
                                         Store &store)
{
    std::vector<Asset *> assets = assetsOf(collection, store);
    const bool namesPictures =
        request.prepared && std::ranges::any_of(*request.prepared, [](const RequestedSlideshow &slideshow) {
            return std::ranges::any_of(slideshow.pictures,
                                       [](const QString &name) { return !name.isEmpty(); });
        });
    if (!assets.empty() || namesPictures)
        return assets;
    return fail(collection ? u"There are no pictures in the collection “%1”."_s.arg(collection->name())
                           : u"There are no pictures in the library."_s);
}

MadeBatch counted(const QList<Slideshow *> &slideshows, qsizetype contents)
{
    qsizetype slides = 0;
    qsizetype withoutPicture = 0;
    for (const Slideshow *slideshow : slideshows) {
        slides += slideshow->slides().size();
        withoutPicture += std::ranges::count_if(slideshow->slides(),
                                                [](const Slide *slide) { return !slide->imageFilename(); });
    }
    MadeBatch made{.slideshows = slideshows, .leftOut = {}};
    made.leftOut.note(contents - slideshows.size(), contents, u"variations hold no slides"_s);
    made.leftOut.note(withoutPicture, slides, u"slides have no picture of their own"_s);
    return made;
}

} // namespace

Result<std::vector<RequestedSlideshow>> requestedSlideshows(const BatchRequest &request,
                                                            const Interruption &interruption)
{
    if (request.prepared)
        return *request.prepared;
    Result<QStringList> contents = QStringList(request.count, request.content);
    if (request.usesAi) {
        contents = askForVariations(request.prompt.value_or(defaultPrompt.toString()), request.content,
                                    request.count, interruption);
    }
    if (!contents)
        return std::unexpected(contents.error());
    std::vector<RequestedSlideshow> slideshows;
    for (const QString &content : *contents)
        slideshows.push_back({content, request.design});
    return slideshows;
}

QRandomGenerator randomSource(std::optional<quint64> seed)
{
    if (!seed)
        return QRandomGenerator::securelySeeded();
    const quint32 halves[]{static_cast<quint32>(*seed), static_cast<quint32>(*seed >> 32)};
    return QRandomGenerator(halves);
}

Result<BatchForecast> forecast(const BatchRequest &request, Collection *collection, Store &store)
{
    const auto assets = picturesFor(request, collection, store);
    if (!assets)
        return std::unexpected(assets.error());
    BatchForecast forecast{.slideshows = request.count, .rowsLeftOut = request.rowsLeftOut};
    if (!request.prepared)
        return forecast;
    const Interruption interruption;
    PictureChoice choice(store, request.tableFolder, !assets->empty(), interruption);
    forecast.slideshows = 0;
    for (const RequestedSlideshow &slideshow : *request.prepared) {
        const Result<> checked = choice.check(slideshow);
        if (!checked)
            report(checked.error().message);
        ++(checked ? forecast.slideshows : forecast.rowsLeftOut);
    }
    return forecast;
}

Result<MadeBatch> makeBatch(const BatchRequest &request, Collection *collection, Store &store,
                            const Interruption &interruption)
{
    QRandomGenerator random = randomSource(request.seed);
    auto assets = picturesFor(request, collection, store);
    if (!assets)
        return std::unexpected(assets.error());
    const PictureSource pictures{*std::move(assets), &random};
    const auto requested = requestedSlideshows(request, interruption);
    if (!requested)
        return std::unexpected(requested.error());
    PictureChoice choice(store, request.tableFolder, !pictures.isEmpty(), interruption);
    std::vector<SlideshowPlan> plans;
    qsizetype leftOut = request.rowsLeftOut;
    for (const RequestedSlideshow &slideshow : *requested) {
        auto chosen = choice.of(slideshow);
        if (chosen) {
            plans.push_back({slideshow.content,
                             {.style = slideshow.design.style,
                              .aspectRatio = slideshow.design.shape,
                              .pictures = *std::move(chosen),
                              .caption = slideshow.caption},
                             slideshow.batchName});
        } else {
            report(chosen.error().message);
            ++leftOut;
        }
    }

    Progress progress(u"slideshows"_s);
    const GeneratedBatch batch = makeBatch(batchNameFor(request.batchName), plans, pictures, store,
                                           [&](qsizetype done, qsizetype total) {
                                               progress.show(done, total);
                                               return !interruption.isRequested();
                                           });
    if (batch.slideshows.isEmpty() && !interruption.isRequested())
        return fail(nothingMade(request));
    MadeBatch made = counted(batch.slideshows,
                             interruption.isRequested() ? batch.slideshows.size() : qsizetype(plans.size()));
    made.leftOut.note(leftOut, qsizetype(requested->size()) + request.rowsLeftOut, rowsNotUsed());
    return made;
}

QString nothingMade(const BatchRequest &request)
{
    return u"No slideshow could be made of %1."_s.arg(request.prepared ? u"what was given"_s
                                                                       : u"what the AI service wrote"_s);
}

QString rowsNotUsed()
{
    return u"rows could not be used"_s;
}

} // namespace mosslantern
