#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/left_out.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "app/cli/picture_import.h"
#include "app/cli/record_json.h"
#include "model/asset.h"
#include "model/record_lookup.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

int importFiles(const Arguments &arguments)
{
    const bool wantsJson = arguments.has("json"_L1);
    const auto store = openOrMakeLibrary(arguments);
    if (!store)
        return failedWith(store.error());
    const Interruption interruption;
    const PictureImport imported = importPictures(arguments.positionals(), **store, interruption);
    if (!saveLibrary(**store))
        return interruption.exitStatus(failed);

    Json json = Json::array();
    for (const Asset *asset : imported.assets) {
        if (wantsJson)
            json.push_back(toJson(*asset));
        else
            writeRow({idText(asset->id()), asset->name()});
    }
    if (wantsJson)
        writeJson(json);
    LeftOut leftOut;
    leftOut.note(imported.problems, imported.problems + qsizetype(imported.assets.size()),
                 u"files were left out"_s);
    return interruption.exitStatus(leftOut.report());
}

} // namespace

std::vector<Command> importCommands()
{
    return {{
        .name = "import"_L1,
        .usage = "[--json] FILE..."_L1,
        .fewestOperands = 1,
        .mostOperands = anyNumber,
        .summary = "copy picture files into the library"_L1,
        .details =
            "Copies picture files into the library and prints the id and the name of each new asset. Of a "
            "folder, all pictures right in it are taken. A file that is not a picture is reported and left "
            "out; the others are imported all the same."_L1,
        .options = {{"json"_L1, {}, "print the new assets as a JSON array"_L1}},
        .takesPictures = true,
        .run = importFiles,
    }};
}

} // namespace mosslantern
