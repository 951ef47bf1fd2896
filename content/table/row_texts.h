#pragma once

#include "content/slide_content.h"
#include "content/table/column_meaning.h"

#include <QtCore/QStringList>

#include <functional>
#include <set>

namespace mosslantern {

/// What a row says of the texts of its slideshow.
struct RowTexts
{
    /// None when the row has no text at all.
    QList<SlideText> slides;
    /// The name of a picture for each of them; empty for one that is left to chance.
    QStringList pictures;
    /// Empty for none.
    QString caption;
};

/// How the rows of one table are read. Goes on without whatever it was made of.
struct RowReader
{
    std::function<RowTexts(qsizetype row)> texts;
    /// Columns that it looks at.
    std::set<qsizetype> used;
};

/// What is said of more slides than a slideshow has.
QString tooManyTexts(qsizetype slides);

/// The text of a cell as people mean it; empty without a column.
QString trimmedCell(const Table &table, qsizetype row, std::optional<qsizetype> column);

/// The columns are the slides' texts. A slide without any is left out.
RowReader columnReader(const Table &table, const std::vector<ColumnMeaning> &meanings);

/// Each row fills the fields of `content`, and of its caption. Fails on a content that cannot be used and on
/// a field that no heading names.
Result<RowReader> fieldReader(const Table &table, const std::vector<ColumnMeaning> &meanings,
                              const QString &content);

} // namespace mosslantern
