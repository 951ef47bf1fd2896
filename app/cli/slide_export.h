#pragma once

#include "app/cli/export_options.h"
#include "app/cli/left_out.h"
#include "model/batch_groups.h"
#include "model/error.h"
#include "render/export/bulk_exporter.h"

#include <vector>

namespace mosslantern {

class Interruption;

/// Exports slideshows in this order into folders below `folder`, all with the same batch name, and prints
/// their folder. Shows progress, reports what went wrong, ends early when there is an interruption. Gives the
/// exit status.
int exportBatch(const QList<Slideshow *> &slideshows, const QString &folder, const ExportTarget &target,
                const Interruption &interruption);

/// Exports slides that are in no library, a folder of its own for each slideshow, all in `folder`. Tells what
/// the command has left out, too.
int exportJobs(const std::vector<JobsOfSlideshow> &slideshows, const QString &folder,
               const ExportTarget &target, const LeftOut &leftOut, const Interruption &interruption);

/// Exports one slideshow straight into `folder` in the same manner.
int exportSingle(const Slideshow &slideshow, const QString &folder, const ExportTarget &target);

} // namespace mosslantern
