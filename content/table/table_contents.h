#pragma once

#include "content/table/row_numbers.h"
#include "content/table/row_texts.h"
#include "model/aspect_ratio.h"
#include "model/text_style.h"

namespace mosslantern {

/// What one row of a table says of its slideshow.
struct TableRow
{
    /// Counted from 1, below the headings.
    qsizetype number = 0;
    /// One to mostSlidesOfSlideshow of them.
    QList<SlideText> slides;
    /// The name of a picture for each of them; empty for one that is left to chance.
    QStringList pictures;
    std::optional<TextStyle> style;
    std::optional<AspectRatio> shape;
    /// The batch that it belongs to; empty for that of the run.
    QString batch;
    QString caption;

    /// The slides as a document that SlideContentJSON reads.
    QString content() const;
};

/// Why a row makes no slideshow.
struct RowProblem
{
    qsizetype number = 0;
    QString reason;
};

/// The slideshows that the rows of a table make below its headings; rows without any cell are passed over.
/// What a row says is made when it is asked for.
class TableContents
{
public:
    /// With a `content`, as parseSlideContent() reads it, each row fills its fields: `{{city}}`, or
    /// `{{city|Berlin}}` for what stands where the cell is empty; and those of its "caption". Without one the
    /// columns are what `meanings` says. Fails when no row can be used because of the meanings, or of a field
    /// that no heading names.
    static Result<TableContents> read(const Table &table, const std::vector<ColumnMeaning> &meanings,
                                      const std::optional<QString> &content, const RowNumbers &rows = {});

    /// How many slideshows there are, and one of them.
    qsizetype count() const { return qsizetype(m_rows.size()); }
    TableRow row(qsizetype place) const;

    /// The place of the slideshow of a row, by its number; nothing when it makes none.
    std::optional<qsizetype> placeOf(qsizetype number) const;

    /// In the order of the rows.
    const QList<RowProblem> &problems() const { return m_problems; }
    /// The headings of columns that mean nothing.
    const QStringList &unusedColumns() const { return m_unusedColumns; }

    /// Takes out what `objection` says something of, as problems.
    void exclude(const std::function<std::optional<QString>(const TableRow &)> &objection);

private:
    Result<TableRow> read(qsizetype number) const;

    Table m_table;
    std::vector<ColumnMeaning> m_meanings;
    RowReader m_reader;
    std::vector<quint32> m_rows; // numbers
    QList<RowProblem> m_problems;
    QStringList m_unusedColumns;
};

/// "118 slideshows, 2 rows left out"
QString countText(qsizetype slideshows, qsizetype rowsLeftOut);

} // namespace mosslantern
