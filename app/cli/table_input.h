#pragma once

#include "app/cli/arguments.h"
#include "app/cli/batch_generation.h"
#include "content/table/table_contents.h"

namespace mosslantern {

/// What the table in `file` makes, with the options --content and --rows. The problems are not reported.
Result<TableContents> readTable(const QString &file, const Arguments &arguments);

/// Prepares what the table of --table asks for. Reports the rows that cannot be used.
Result<> readTableRequest(const Arguments &arguments, BatchRequest &request);

/// "row 7"
QString rowName(qsizetype number);

} // namespace mosslantern
