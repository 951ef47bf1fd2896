#include "app/cli/batch_generation.h"
#include "app/cli/output.h"
#include "app/cli/table_input.h"
#include "app/cli/text_input.h"
#include "content/json.h"
#include "content/slide_content.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostSlideshows = 1000;

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

} // namespace mosslantern
