#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/library.h"
#include "app/cli/option_reader.h"
#include "app/cli/output.h"
#include "app/cli/slide_export.h"
#include "model/record_lookup.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

int exportSlides(const Arguments &arguments)
{
    OptionReader options(arguments);
    const QString folder = options.required("to"_L1);
    const ExportTarget target = readExportTarget(options);
    if (options.problem())
        return wrongUsage(*options.problem());
    const std::optional<QString> batch = arguments.value("batch"_L1);
    const std::optional<QString> slideshow = arguments.value("slideshow"_L1);
    if (batch.has_value() == slideshow.has_value())
        return wrongUsage(u"expected either --batch or --slideshow");
    if (slideshow && target.hasIndex)
        return wrongUsage(u"--index needs --batch");

    const auto store = openLibrary(arguments);
    if (!store)
        return failedWith(store.error());
    const Interruption interruption;
    if (slideshow) {
        const Result<Slideshow *> found = findSlideshow(**store, *slideshow);
        return found ? interruption.exitStatus(exportSingle(**found, folder, target))
                     : failedWith(found.error());
    }
    const Result<BatchGroup> found = findBatch(**store, *batch);
    if (!found)
        return failedWith(found.error());
    return interruption.exitStatus(exportBatch(found->slideshows, folder, target, interruption));
}

std::vector<OptionSpec> allOptions()
{
    std::vector<OptionSpec> options{
        {"batch"_L1, "BATCH"_L1, "the batch: its name, or the id of one run"_L1},
        {"slideshow"_L1, "SLIDESHOW"_L1, "the slideshow"_L1},
        {"to"_L1, "DIR"_L1, "where the files go; made when it is not there"_L1},
    };
    std::ranges::copy(exportTargetOptions(), std::back_inserter(options));
    return options;
}

} // namespace

std::vector<Command> exportCommands()
{
    return {{
        .name = "export"_L1,
        .usage = "(--batch BATCH | --slideshow SLIDESHOW) --to DIR [OPTION...]"_L1,
        .summary = "write slides as PNG or other files"_L1,
        .details = "Writes the slides of a batch or of one slideshow as files, and prints the folder. "
                   "A batch goes into a folder called like it inside DIR, with a folder for each slideshow: "
                   "Slideshow_1 is the newest. A single slideshow goes straight into DIR. "
                   "Files of the same names are replaced."_L1,
        .options = allOptions(),
        .draws = true,
        .run = exportSlides,
    }};
}

} // namespace mosslantern
