#pragma once

#include "app/cli/option_reader.h"
#include "render/export/export_options.h"

#include <vector>

namespace mosslantern {

/// The options that tell how slides are exported.
std::vector<OptionSpec> exportOptions();

/// What they tell; look at options.problem() before using it.
ExportOptions readExportOptions(OptionReader &options);

/// How an export is written, and as what.
struct ExportTarget
{
    ExportOptions options;
    bool isArchive = false;  // one ZIP file instead of a folder
    bool isDocument = false; // a PDF document instead of each slideshow's folder
    bool hasIndex = false;   // of a batch
};

/// The options that tell a target, and what they tell, in the same manner.
std::vector<OptionSpec> exportTargetOptions();
ExportTarget readExportTarget(OptionReader &options);

} // namespace mosslantern
