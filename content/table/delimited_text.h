#pragma once

#include "content/table/table.h"

namespace mosslantern {

/// Reads a table of cells that tabs, semicolons, commas or bars separate: what spreadsheets write as CSV or
/// TSV and what they put on the clipboard. Cells in quotes may hold separators, line breaks and, doubled,
/// quotes. The separator is the one that makes columns of the first rows; a first line `sep=;` tells it. The
/// text is UTF-8, UTF-16 with or without a byte order mark, or else Windows-1252. Fails on an open quote, on
/// what is no text and on a table that is too large.
[[nodiscard]] Result<Table> readDelimitedText(QByteArrayView bytes);

} // namespace mosslantern
