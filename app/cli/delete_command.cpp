#include "app/cli/commands.h"
#include "app/cli/left_out.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "model/collection.h"
#include "model/content_template.h"
#include "model/delete_asset.h"
#include "model/record_lookup.h"
#include "model/slide_preset.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Deletes what `find` finds for each operand. A slideshow may be gone with something else already.
template <typename Find, typename Delete>
int deleteEach(const Arguments &arguments, Find find, Delete deleteFound)
{
    const auto store = openLibraryToChange(arguments);
    if (!store)
        return failedWith(store.error());
    qsizetype missing = 0;
    for (const QString &name : arguments.positionals()) {
        if (const auto found = find(**store, name)) {
            deleteFound(**store, *found);
        } else {
            report(found.error().message);
            ++missing;
        }
    }
    if (!saveLibrary(**store))
        return failed;
    LeftOut leftOut;
    leftOut.note(missing, arguments.positionals().size(), u"could not be deleted"_s);
    return leftOut.report();
}

void removeRecord(Store &store, Record *record)
{
    store.remove(record);
}

int deleteAssets(const Arguments &arguments)
{
    return deleteEach(arguments, findAsset, [](Store &, Asset *asset) { deleteAsset(asset); });
}

int deleteBatches(const Arguments &arguments)
{
    return deleteEach(arguments, findBatch, [](Store &store, const BatchGroup &batch) {
        for (Slideshow *slideshow : batch.slideshows)
            store.remove(slideshow);
    });
}

int deleteSlideshows(const Arguments &arguments)
{
    return deleteEach(arguments, findSlideshow, removeRecord);
}

int deletePresets(const Arguments &arguments)
{
    return deleteEach(arguments, findPreset, removeRecord);
}

int deleteTemplates(const Arguments &arguments)
{
    return deleteEach(arguments, findTemplate, removeRecord);
}

Command deleteCommand(QLatin1StringView name, QLatin1StringView usage, QLatin1StringView summary,
                      QLatin1StringView details, int (*run)(const Arguments &))
{
    return {.name = name,
            .usage = usage,
            .fewestOperands = 1,
            .mostOperands = anyNumber,
            .summary = summary,
            .details = details,
            .options = {},
            .run = run};
}

} // namespace

int deleteCollections(const Arguments &arguments)
{
    return deleteEach(arguments, findCollection, removeRecord);
}

std::vector<Command> deleteCommands()
{
    return {
        deleteCommand(
            "delete asset"_L1, "ASSET..."_L1, "delete assets, named by name or id"_L1,
            "Deletes assets, named by name or id. Slideshows with a slide that has no picture of its own "
            "but shows the asset's file are deleted, too, and printed. Picture files stay."_L1,
            deleteAssets),
        deleteCommand("delete collection"_L1, "COLLECTION..."_L1, "delete collections; their assets stay"_L1,
                      "Deletes collections, named by name or id. Their assets and slideshows stay."_L1,
                      deleteCollections),
        deleteCommand("delete batch"_L1, "BATCH..."_L1, "delete all slideshows of batches"_L1,
                      "Deletes all slideshows of batches, named by name or by the id of one run. "
                      "Picture files stay."_L1,
                      deleteBatches),
        deleteCommand("delete slideshow"_L1, "SLIDESHOW..."_L1, "delete single slideshows"_L1,
                      "Deletes slideshows, named by id. Picture files stay."_L1, deleteSlideshows),
        deleteCommand("delete preset"_L1, "PRESET..."_L1, "delete saved styles"_L1,
                      "Deletes saved styles, named by name or id."_L1, deletePresets),
        deleteCommand("delete template"_L1, "TEMPLATE..."_L1, "delete saved slide texts"_L1,
                      "Deletes saved slide texts, named by name or id."_L1, deleteTemplates),
    };
}

} // namespace mosslantern
