#include "app/cli/batch_generation.h"
#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/picture_import.h"
#include "app/cli/slide_export.h"
#include "model/batch_groups.h"
#include "model/slideshow.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

int makeInLibrary(const QString &libraryFolder, const QString &images, const BatchRequest &request,
                  const QString &out, const Interruption &interruption)
{
    const auto store = Store::open(LibraryLocation::inFolder(libraryFolder));
    if (!store)
        return failedWith(store.error());
    const PictureImport imported = importPictures({images}, **store, interruption);
    if (interruption.isRequested() || imported.assets.empty())
        return failed;
    const auto made = makeBatch(request, nullptr, **store, interruption);
    if (interruption.isRequested())
        return failed;
    if (!made)
        return failedWith(made.error());
    const int exported = exportBatch(groupedSlideshows(*made).first().slideshows, out, interruption);
    return exported == done && !imported.isComplete ? failed : exported;
}

int make(const Arguments &arguments)
{
    OptionReader options(arguments);
    const QString images = options.required("images"_L1);
    const QString out = options.required("out"_L1);
    if (options.problem())
        return wrongUsage(*options.problem());
    const auto request = readBatchRequest(arguments);
    if (!request)
        return request.error();
    if (!QFileInfo(images).isDir())
        return failedWith({u"“%1” is not a folder."_s.arg(images)});
    if (!QDir().mkpath(out))
        return failedWith({u"The folder “%1” could not be created."_s.arg(out)});

    const Interruption interruption;
    // On the file system of the results: where it can share data between files, copies cost nothing.
    const QTemporaryDir library(QDir(out).absoluteFilePath(u".mosslantern-XXXXXX"_s));
    if (!library.isValid())
        return failedWith({u"A folder could not be created in “%1”: %2"_s.arg(out, library.errorString())});
    return interruption.exitStatus(makeInLibrary(library.path(), images, *request, out, interruption));
}

std::vector<OptionSpec> makeOptions()
{
    std::vector<OptionSpec> options = batchOptions();
    options.insert(options.begin(), {{"images"_L1, "DIR"_L1, "folder of the pictures"_L1},
                                     {"out"_L1, "DIR"_L1, "where the folder of the batch is made"_L1}});
    return options;
}

} // namespace

std::vector<Command> makeCommands()
{
    return {{
        .name = "make"_L1,
        .usage = "--images DIR --content FILE|- --out DIR [OPTION...]"_L1,
        .summary = "pictures and texts to PNG slides in one go"_L1,
        .details =
            "Makes slideshows from slide texts and randomly chosen pictures of a folder, writes them as PNG "
            "files and prints the folder of the batch. Nothing else is kept: the library used for it is "
            "removed at the end."_L1,
        .options = makeOptions(),
        .usesLibrary = false,
        .draws = true,
        .run = make,
    }};
}

} // namespace mosslantern
