#pragma once

#include "app/cli/option_reader.h"
#include "render/export/export_options.h"

#include <vector>

namespace mosslantern {

/// The options that tell how slides are exported.
std::vector<OptionSpec> exportOptions();

/// What they tell; look at options.problem() before using it.
ExportOptions readExportOptions(OptionReader &options);

} // namespace mosslantern
