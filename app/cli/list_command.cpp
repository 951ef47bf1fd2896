#include "app/cli/commands.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "app/cli/record_json.h"
#include "model/collection.h"
#include "model/content_template.h"
#include "model/live_query.h"
#include "model/record_lookup.h"
#include "model/slide_preset.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr OptionSpec jsonOption{"json"_L1, {}, "print a JSON array with all that is known of them"_L1};

QStringList row(const Asset *asset)
{
    return {idText(asset->id()), asset->name(),
            asset->collection() ? asset->collection()->name() : QString()};
}

QStringList row(const Collection *collection)
{
    return {idText(collection->id()), collection->name(), QString::number(collection->assets().size())};
}

QStringList row(const BatchGroup &group)
{
    return {group.name, QString::number(group.slideshows.size())};
}

QStringList row(const Slideshow *slideshow)
{
    return {idText(slideshow->id()), slideshow->batchName().value_or(QString()),
            rawText(slideshow->aspectRatio().value_or(AspectRatio::tiktok)),
            QString::number(slideshow->slides().size())};
}

QStringList row(const SlidePreset *preset)
{
    return {idText(preset->id()), preset->name()};
}

QStringList row(const ContentTemplate *contentTemplate)
{
    return {idText(contentTemplate->id()), contentTemplate->name()};
}

template <typename T>
Json json(const T *record)
{
    return toJson(*record);
}

Json json(const BatchGroup &group)
{
    return toJson(group);
}

/// Lists what `fetch` takes from the library.
template <typename Fetch>
int list(const Arguments &arguments, Fetch fetch)
{
    const auto store = openLibrary(arguments);
    if (!store)
        return failedWith(store.error());
    Json all = Json::array();
    for (const auto &item : fetch(**store)) {
        if (arguments.has(jsonOption.name))
            all.push_back(json(item));
        else
            writeRow(row(item));
    }
    if (arguments.has(jsonOption.name))
        writeJson(all);
    return done;
}

template <typename T>
std::vector<T *> inStoreOrder(const Store &store)
{
    return store.all<T>();
}

template <typename T>
std::vector<T *> fromNewest(const Store &store)
{
    std::vector<T *> records = store.all<T>();
    std::ranges::sort(records, [](const T *a, const T *b) { return newestFirst(*a, *b); });
    return records;
}

int listAssets(const Arguments &arguments)
{
    return list(arguments, inStoreOrder<Asset>);
}

int listBatches(const Arguments &arguments)
{
    return list(arguments, [](const Store &store) { return groupedSlideshows(store.all<Slideshow>()); });
}

int listSlideshows(const Arguments &arguments)
{
    return list(arguments, fromNewest<Slideshow>);
}

int listPresets(const Arguments &arguments)
{
    return list(arguments, fromNewest<SlidePreset>);
}

int listTemplates(const Arguments &arguments)
{
    return list(arguments, fromNewest<ContentTemplate>);
}

Command listCommand(QLatin1StringView name, QLatin1StringView summary, QLatin1StringView details,
                    int (*run)(const Arguments &))
{
    return {.name = name,
            .usage = "[--json]"_L1,
            .summary = summary,
            .details = details,
            .options = {jsonOption},
            .run = run};
}

} // namespace

int listCollections(const Arguments &arguments)
{
    return list(arguments, fromNewest<Collection>);
}

std::vector<Command> listCommands()
{
    return {
        listCommand("list assets"_L1, "list the imported pictures"_L1,
                    "Prints the id, the name and the collection of each imported picture, in the order of "
                    "import."_L1,
                    listAssets),
        listCommand(
            "list collections"_L1, "list the collections, newest first"_L1,
            "Prints the id, the name and the number of assets of each collection, the newest first."_L1,
            listCollections),
        listCommand("list batches"_L1, "list the batches of slideshows, newest first"_L1,
                    "Prints the name of each batch and the number of its slideshows, the newest first. "
                    "Slideshows of the same batch name are one batch; those without one are called "
                    "\"Uncategorized\"."_L1,
                    listBatches),
        listCommand(
            "list slideshows"_L1, "list the slideshows, newest first"_L1,
            "Prints the id, the batch name, the shape and the number of slides of each slideshow, the "
            "newest first. With --json the slides are shown, too."_L1,
            listSlideshows),
        listCommand("list presets"_L1, "list the saved styles, newest first"_L1,
                    "Prints the id and the name of each saved style, the newest first."_L1, listPresets),
        listCommand("list templates"_L1, "list the saved slide texts, newest first"_L1,
                    "Prints the id and the name of each saved slide text, the newest first."_L1,
                    listTemplates),
    };
}

} // namespace mosslantern
