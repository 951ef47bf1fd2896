#include "app/cli/batch_generation.h"

#include "app/cli/ai_request.h"
#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/picture_choice.h"
#include "app/cli/progress.h"
#include "app/cli/table_input.h"
#include "app/cli/text_input.h"
#include "content/batch_name.h"
#include "content/json.h"
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

/// What speaks against these options together.
std::optional<QString> conflictOf(const Arguments &arguments)
{
    static constexpr std::pair<QLatin1StringView, QLatin1StringView> conflicts[] = {
        {"table"_L1, "ai"_L1},           {"table"_L1, "count"_L1},      {"table"_L1, "variations"_L1},
        {"variations"_L1, "content"_L1}, {"variations"_L1, "count"_L1}, {"variations"_L1, "ai"_L1}};
    for (const auto &[one, other] : conflicts) {
        if (arguments.has(one) && arguments.has(other))
            return u"--%1 and --%2 exclude each other"_s.arg(one, other);
    }
    if (arguments.has("prompt"_L1) && !arguments.has("ai"_L1))
        return u"--prompt needs --ai"_s;
    if (arguments.has("rows"_L1) && !arguments.has("table"_L1))
        return u"--rows needs --table"_s;
    return {};
}

Result<> readContent(const Arguments &arguments, BatchRequest &request)
{
    Result<QString> content = readText(*arguments.value("content"_L1));
    if (!content)
        return std::unexpected(content.error());
    request.content = *std::move(content);
    // The AI service takes any example.
    if (request.usesAi)
        return {};
    const QByteArray utf8 = request.content.trimmed().toUtf8();
    if (utf8.startsWith('[') && JsonValue::parse(utf8))
        return fail(u"The content is an array: what “variations” writes is read by --variations."_s);
    const Result<QList<SlideText>> slides = readSlideContent(request.content);
    if (!slides)
        return fail(u"The content cannot be used: "_s + slides.error().message);
    if (slides->isEmpty())
        return fail(u"The content has no slides."_s);
    return {};
}

Result<> readVariations(const Arguments &arguments, BatchRequest &request)
{
    const Result<QString> text = readText(*arguments.value("variations"_L1));
    if (!text)
        return std::unexpected(text.error());
    const auto documents = jsonElements(text->toUtf8());
    if (!documents)
        return fail(u"The variations cannot be used: "_s + documents.error().message);
    if (documents->empty())
        return fail(u"There are no variations."_s);
    if (qint64(documents->size()) > mostSlideshows)
        return fail(u"There are more than %1 variations."_s.arg(mostSlideshows));
    request.prepared.emplace();
    for (const QByteArray &document : *documents)
        request.prepared->push_back({QString::fromUtf8(document), request.design});
    return {};
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

std::vector<OptionSpec> batchOptions()
{
    std::vector<OptionSpec> options{
        {"content"_L1, "FILE|-"_L1,
         "slide texts: a JSON document, or plain text with a slide on each line"_L1},
        {"table"_L1, "FILE|-"_L1,
         "a table (CSV, TSV): a slideshow for each row, whose columns are slides or fill {{fields}} of the "
         "content"_L1},
        {"rows"_L1, "ROWS"_L1, "with --table: only these rows below the headings, such as 1-20,35"_L1},
        {"variations"_L1, "FILE|-"_L1, "what the command “variations” wrote: a slideshow for each"_L1},
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
    const bool isPrepared = arguments.has("table"_L1) || arguments.has("variations"_L1);
    if (!isPrepared)
        static_cast<void>(options.required("content"_L1));
    request.count = options.integer("count"_L1, 1, mostSlideshows).value_or(request.count);
    request.design = readDesign(options);
    request.batchName = arguments.value("batch-name"_L1).value_or(QString());
    request.seed = options.seed("seed"_L1);
    request.usesAi = arguments.has("ai"_L1);
    request.prompt = arguments.value("prompt"_L1);
    if (options.problem())
        return std::unexpected(wrongUsage(*options.problem()));
    if (const std::optional<QString> conflict = conflictOf(arguments))
        return std::unexpected(wrongUsage(*conflict));

    const Result<> read = arguments.has("table"_L1)        ? readTableRequest(arguments, request)
                          : arguments.has("variations"_L1) ? readVariations(arguments, request)
                                                           : readContent(arguments, request);
    if (!read)
        return std::unexpected(failedWith(read.error()));
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
    const auto requested = requestedSlideshows(request, interruption);
    if (!requested)
        return std::unexpected(requested.error());
    PictureChoice choice(store, interruption);
    std::vector<SlideshowPlan> plans;
    qsizetype leftOut = request.rowsLeftOut;
    for (const RequestedSlideshow &slideshow : *requested) {
        auto chosen = choice.of(slideshow);
        if (chosen) {
            plans.push_back({slideshow.content,
                             {.style = slideshow.design.style,
                              .aspectRatio = slideshow.design.shape,
                              .pictures = *std::move(chosen)}});
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
