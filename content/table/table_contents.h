#pragma once

#include "content/table/row_numbers.h"
#include "content/table/table.h"
#include "model/aspect_ratio.h"
#include "model/text_style.h"

#include <QtCore/QStringList>

#include <optional>

namespace mosslantern {

/// What one row of a table says of its slideshow.
struct TableRow
{
    /// Counted from 1, below the headings.
    qsizetype number = 0;
    /// A document as SlideContentJSON has it.
    QString content;
    /// Names of pictures for the first slides; empty for one that is left to chance.
    QStringList pictures;
    std::optional<TextStyle> style;
    std::optional<AspectRatio> shape;
};

/// Why a row makes no slideshow.
struct RowProblem
{
    qsizetype number = 0;
    QString reason;
};

/// What a table is to make.
struct TableContents
{
    std::vector<TableRow> rows;
    QList<RowProblem> problems;
    /// The headings of columns that mean nothing.
    QStringList unusedColumns;
};

/// The contents that the rows of `table` make below its headings; rows without any cell are passed over.
/// With a `content`, as parseSlideContent() reads it, each row fills its fields: `{{city}}`, or
/// `{{city|Berlin}}` for what stands where the cell is empty. Without one the columns are the slides' texts:
/// "main 1", "subtitle 1", "main 2", …; a slide without text is left out. Columns "image 1", …, "style" and
/// "shape" may stand beside them. Case, spaces and underscores do not matter in headings and fields.
/// Fails when no row can be used because of the headings, or of a field that no column has.
Result<TableContents> tableContents(const Table &table, const std::optional<QString> &content,
                                    const RowNumbers &rows);

} // namespace mosslantern
