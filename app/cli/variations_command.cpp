#include "app/cli/ai_request.h"
#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/option_reader.h"
#include "app/cli/output.h"
#include "app/cli/text_input.h"
#include "content/json.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostVariations = 1000;

/// One JSON array of the documents, whose numbers stay as they are written.
Result<QByteArray> arrayOf(const QStringList &documents)
{
    const QByteArray array = '[' + documents.join(u',').toUtf8() + ']';
    const Result<JsonValue> parsed = JsonValue::parse(array);
    return parsed ? prettyJson(*parsed) : std::unexpected(parsed.error());
}

int variations(const Arguments &arguments)
{
    OptionReader options(arguments);
    const QString file = options.required("content"_L1);
    const QString prompt = options.required("prompt"_L1);
    const qint64 count = options.integer("count"_L1, 1, mostVariations).value_or(1);
    if (options.problem())
        return wrongUsage(*options.problem());
    const Result<QString> content = readText(file);
    if (!content)
        return failedWith(content.error());

    const Interruption interruption;
    const Result<QStringList> documents = askForVariations(prompt, *content, count, interruption);
    if (interruption.isRequested())
        return interruption.exitStatus(failed);
    const Result<QByteArray> array = documents ? arrayOf(*documents) : std::unexpected(documents.error());
    if (!array)
        return failedWith(array.error());
    writeOut(*array + '\n');
    return done;
}

} // namespace

std::vector<Command> variationsCommands()
{
    return {{
        .name = "variations"_L1,
        .usage = "--prompt TEXT --content FILE|- [--count N]"_L1,
        .summary = "let the AI service write variations of slide texts"_L1,
        .details =
            "Asks the AI service for variations of slide texts and prints them as a JSON array. The key is "
            "the preference openAiApiKey or, when that is empty, the variable OPENAI_API_KEY; the variable "
            "OPENAI_BASE_URL names another server that understands the same requests."_L1,
        .options = {{"prompt"_L1, "TEXT"_L1, "what the variations are to be about"_L1},
                    {"content"_L1, "FILE|-"_L1, "the example that they follow"_L1},
                    {"count"_L1, "N"_L1, "how many to ask for, 1 to 1000; 1 by default"_L1}},
        .usesLibrary = false,
        .run = variations,
    }};
}

} // namespace mosslantern
