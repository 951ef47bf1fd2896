#include "app/cli/commands.h"
#include "app/cli/left_out.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "app/cli/record_json.h"
#include "model/collection.h"
#include "model/record_lookup.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr OptionSpec jsonOption{"json"_L1, {}, "print the new collection as JSON"_L1};

int create(const Arguments &arguments)
{
    const auto store = openOrMakeLibrary(arguments);
    if (!store)
        return failedWith(store.error());
    const Collection *const collection =
        (*store)->insert(std::make_unique<Collection>(arguments.positionals().first()));
    if (!saveLibrary(**store))
        return failed;
    if (arguments.has(jsonOption.name))
        writeJson(toJson(*collection));
    else
        writeRow({idText(collection->id()), collection->name()});
    return done;
}

/// Calls `change` with the collection of the first operand and each asset of the others.
template <typename Change>
int changeMembers(const Arguments &arguments, Change change)
{
    const auto store = openLibraryToChange(arguments);
    if (!store)
        return failedWith(store.error());
    const Result<Collection *> collection = findCollection(**store, arguments.positionals().first());
    if (!collection)
        return failedWith(collection.error());
    qsizetype unchanged = 0;
    const QStringList names = arguments.positionals().sliced(1);
    for (const QString &name : names) {
        const Result<Asset *> asset = findAsset(**store, name);
        const Result<> changed = asset ? change(*asset, *collection) : std::unexpected(asset.error());
        if (!changed) {
            report(changed.error().message);
            ++unchanged;
        }
    }
    if (!saveLibrary(**store))
        return failed;
    LeftOut leftOut;
    leftOut.note(unchanged, names.size(), u"assets were left as they are"_s);
    return leftOut.report();
}

int add(const Arguments &arguments)
{
    return changeMembers(arguments, [](Asset *asset, Collection *collection) -> Result<> {
        asset->setCollection(collection);
        return {};
    });
}

int remove(const Arguments &arguments)
{
    return changeMembers(arguments, [](Asset *asset, Collection *collection) -> Result<> {
        if (asset->collection() != collection)
            return fail(u"“%1” is not in the collection “%2”."_s.arg(asset->name(), collection->name()));
        asset->setCollection(nullptr);
        return {};
    });
}

} // namespace

std::vector<Command> collectionCommands()
{
    return {
        {
            .name = "collections list"_L1,
            .usage = "[--json]"_L1,
            .summary = "list the collections, newest first"_L1,
            .details =
                "Prints the id, the name and the number of assets of each collection, the newest first."_L1,
            .options = {{"json"_L1, {}, "print them as a JSON array"_L1}},
            .run = listCollections,
        },
        {
            .name = "collections create"_L1,
            .usage = "[--json] NAME"_L1,
            .fewestOperands = 1,
            .mostOperands = 1,
            .summary = "make an empty collection"_L1,
            .details = "Makes an empty collection and prints its id. Names need not be unique."_L1,
            .options = {jsonOption},
            .run = create,
        },
        {
            .name = "collections delete"_L1,
            .usage = "COLLECTION..."_L1,
            .fewestOperands = 1,
            .mostOperands = anyNumber,
            .summary = "delete collections; their assets stay"_L1,
            .details = "Deletes collections, named by name or id. Their assets and slideshows stay."_L1,
            .run = deleteCollections,
        },
        {
            .name = "collections add"_L1,
            .usage = "COLLECTION ASSET..."_L1,
            .fewestOperands = 2,
            .mostOperands = anyNumber,
            .summary = "put assets into a collection"_L1,
            .details =
                "Puts assets, named by name or id, into a collection and so takes them out of the one that "
                "they were in."_L1,
            .run = add,
        },
        {
            .name = "collections remove"_L1,
            .usage = "COLLECTION ASSET..."_L1,
            .fewestOperands = 2,
            .mostOperands = anyNumber,
            .summary = "take assets out of a collection"_L1,
            .details = "Takes assets, named by name or id, out of a collection. They stay in the library."_L1,
            .run = remove,
        },
    };
}

} // namespace mosslantern
