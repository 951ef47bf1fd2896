#include "app/cli/batch_generation.h"
#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "app/cli/record_json.h"
#include "content/table/table_contents.h"
#include "model/record_lookup.h"
#include "model/slideshow.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

void print(const QList<Slideshow *> &slideshows, bool asJson)
{
    Json json = Json::array();
    for (const Slideshow *slideshow : slideshows) {
        if (asJson) {
            json.push_back(toJson(*slideshow));
        } else {
            writeRow({idText(slideshow->id()), slideshow->batchName().value_or(QString()),
                      QString::number(slideshow->slides().size())});
        }
    }
    if (asJson)
        writeJson(json);
}

/// Makes nothing.
int tell(const BatchRequest &request, Collection *collection, Store &store, bool asJson)
{
    const auto told = forecast(request, collection, store);
    if (!told)
        return failedWith(told.error());
    if (asJson)
        writeJson({{"slideshows", told->slideshows}, {"rowsLeftOut", told->rowsLeftOut}});
    else
        writeRow({countText(told->slideshows, told->rowsLeftOut)});
    return told->rowsLeftOut == 0 && told->slideshows > 0 ? done : failed;
}

int generate(const Arguments &arguments)
{
    const bool wantsJson = arguments.has("json"_L1);
    const auto request = readBatchRequest(arguments);
    if (!request)
        return request.error();
    const bool isForecast = arguments.has("dry-run"_L1);
    const auto store = isForecast ? openLibrary(arguments) : openLibraryToChange(arguments);
    if (!store)
        return failedWith(store.error());
    Collection *collection = nullptr;
    if (const std::optional<QString> name = arguments.value("collection"_L1)) {
        const Result<Collection *> found = findCollection(**store, *name);
        if (!found)
            return failedWith(found.error());
        collection = *found;
    }
    if (isForecast)
        return tell(*request, collection, **store, wantsJson);
    const Interruption interruption;
    const auto made = makeBatch(*request, collection, **store, interruption);
    if (!made)
        return interruption.isRequested() ? interruption.exitStatus(failed) : failedWith(made.error());
    if (!saveLibrary(**store))
        return interruption.exitStatus(failed);
    print(made->slideshows, wantsJson);
    return interruption.exitStatus(made->leftOut.report());
}

std::vector<OptionSpec> generateOptions()
{
    std::vector<OptionSpec> options = batchOptions();
    options.push_back({"collection"_L1, "COLLECTION"_L1, "use the pictures of this collection only"_L1});
    options.push_back(
        {"dry-run"_L1, {}, "only tell how many slideshows there would be, and what is wrong"_L1});
    options.push_back({"json"_L1, {}, "print the new slideshows as a JSON array"_L1});
    return options;
}

} // namespace

std::vector<Command> generateCommands()
{
    return {{
        .name = "generate"_L1,
        .usage = "(--content FILE|- | --table FILE|- | --variations FILE|-) [OPTION...]"_L1,
        .summary = "make a batch of slideshows from slide texts"_L1,
        .details =
            "Makes slideshows from slide texts and randomly chosen pictures of the library, and prints the "
            "id, the batch name and the number of slides of each. A slideshow has at most five slides."_L1,
        .options = generateOptions(),
        .run = generate,
    }};
}

} // namespace mosslantern
