#include "app/cli/batch_generation.h"

#include "app/cli/ai_request.h"
#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "app/cli/text_input.h"
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

constexpr qint64 mostSlideshows = 1000;

/// The pictures of `collection`, or all when it is null, in the library's order.
std::vector<Asset *> assetsOf(const Collection *collection, Store &store)
{
    std::vector<Asset *> assets = store.all<Asset>();
    if (collection)
        std::erase_if(assets, [&](const Asset *asset) { return asset->collection() != collection; });
    return assets;
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

Result<QStringList> batchContents(const BatchRequest &request, const Interruption &interruption)
{
    if (!request.usesAi)
        return QStringList(request.count, request.content);
    return askForVariations(request.prompt.value_or(defaultPrompt.toString()), request.content, request.count,
                            interruption);
}

QRandomGenerator randomSource(std::optional<quint64> seed)
{
    if (!seed)
        return QRandomGenerator::securelySeeded();
    const quint32 halves[]{static_cast<quint32>(*seed), static_cast<quint32>(*seed >> 32)};
    return QRandomGenerator(halves);
}

std::vector<OptionSpec> batchOptions()
{
    std::vector<OptionSpec> options{
        {"content"_L1, "FILE|-"_L1,
         "slide texts: a JSON document, or plain text with a slide on each line"_L1},
        {"count"_L1, "N"_L1, "how many slideshows to make, 1 to 1000; 1 by default"_L1},
        {"batch-name"_L1, "NAME"_L1, "name of the batch; date and time by default"_L1},
        {"seed"_L1, "N"_L1, "choose the same pictures in every run with the same seed and pictures"_L1},
        {"ai"_L1, {}, "let the AI service write variations of the content, one for each slideshow"_L1},
        {"prompt"_L1, "TEXT"_L1, "with --ai: what the variations are to be about"_L1},
    };
    std::ranges::copy(designOptions(), std::back_inserter(options));
    return options;
}

std::expected<BatchRequest, int> readBatchRequest(const Arguments &arguments)
{
    OptionReader options(arguments);
    BatchRequest request;
    const QString file = options.required("content"_L1);
    request.count = options.integer("count"_L1, 1, mostSlideshows).value_or(request.count);
    request.design = readDesign(options);
    request.batchName = arguments.value("batch-name"_L1).value_or(QString());
    request.seed = options.seed("seed"_L1);
    request.usesAi = arguments.has("ai"_L1);
    request.prompt = arguments.value("prompt"_L1);
    if (options.problem())
        return std::unexpected(wrongUsage(*options.problem()));
    if (arguments.has("prompt"_L1) && !request.usesAi)
        return std::unexpected(wrongUsage(u"--prompt needs --ai"));

    Result<QString> content = readText(file);
    if (!content)
        return std::unexpected(failedWith(content.error()));
    request.content = *std::move(content);
    // The AI service takes any example.
    if (request.usesAi)
        return request;
    const Result<QList<SlideText>> slides = readSlideContent(request.content);
    if (!slides)
        return std::unexpected(failedWith({u"The content cannot be used: "_s + slides.error().message}));
    if (slides->isEmpty())
        return std::unexpected(failedWith({u"The content has no slides."_s}));
    return request;
}

Result<MadeBatch> makeBatch(const BatchRequest &request, Collection *collection, Store &store,
                            const Interruption &interruption)
{
    QRandomGenerator random = randomSource(request.seed);
    const PictureSource pictures{assetsOf(collection, store), &random};
    if (pictures.isEmpty()) {
        return fail(collection ? u"There are no pictures in the collection “%1”."_s.arg(collection->name())
                               : u"There are no pictures in the library."_s);
    }
    const Result<QStringList> texts = batchContents(request, interruption);
    if (!texts)
        return std::unexpected(texts.error());

    Progress progress(u"slideshows"_s);
    const GeneratedBatch batch =
        makeBatch(batchNameFor(request.batchName), *texts,
                  {.style = request.design.style, .aspectRatio = request.design.shape}, pictures, store,
                  [&](qsizetype done, qsizetype total) {
                      progress.show(done, total);
                      return !interruption.isRequested();
                  });
    if (batch.slideshows.isEmpty() && !interruption.isRequested())
        return fail(u"No slideshow could be made of what the AI service wrote."_s);
    return counted(batch.slideshows, interruption.isRequested() ? batch.slideshows.size() : texts->size());
}

} // namespace mosslantern
