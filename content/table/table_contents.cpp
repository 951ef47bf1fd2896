#include "content/table/table_contents.h"

#include "content/slideshow_maker.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Kind = ColumnMeaning::Kind;

std::optional<qsizetype> columnOf(const std::vector<ColumnMeaning> &meanings, Kind kind)
{
    const auto found = std::ranges::find(meanings, kind, &ColumnMeaning::kind);
    return found == meanings.end() ? std::nullopt : std::optional<qsizetype>(found - meanings.begin());
}

/// A value from its cell; nothing when that is empty.
template <typename T>
Result<std::optional<T>> valueOf(const QString &cell, std::optional<T> (*fromRawText)(QStringView),
                                 QLatin1StringView what)
{
    if (cell.isEmpty())
        return std::optional<T>();
    const std::optional<T> value = fromRawText(cell.toLower());
    if (!value)
        return fail(u"“%1” is no %2"_s.arg(cell, what));
    return value;
}

} // namespace

QString TableRow::content() const
{
    SlideContentJSON document;
    for (const SlideText &slide : slides) {
        document.slides.append(
            {slide.main, slide.subtitle.isEmpty() ? std::optional<QString>() : slide.subtitle});
    }
    // Neither cells nor contents that are read hold half of a surrogate pair.
    return document.encode().value();
}

Result<TableContents> TableContents::read(const Table &table, const std::vector<ColumnMeaning> &meanings,
                                          const std::optional<QString> &content, const RowNumbers &rows)
{
    if (table.rowCount() == 0)
        return fail(u"The table is empty."_s);
    if (!content && std::ranges::none_of(meanings, &ColumnMeaning::isText)) {
        return fail(u"No column is called “main 1”, “subtitle 1” and so on; where the columns are fields, a "
                    "content with {{fields}} is needed."_s);
    }
    Result<RowReader> reader =
        content ? fieldReader(table, meanings, *content) : columnReader(table, meanings);
    if (!reader)
        return std::unexpected(reader.error());

    TableContents contents;
    contents.m_table = table;
    contents.m_meanings = meanings;
    contents.m_reader = *std::move(reader);
    for (qsizetype column = 0; column < table.columnCount(); ++column) {
        const bool isUsed =
            contents.m_reader.used.contains(column) ||
            (meanings[size_t(column)].kind != Kind::none && !meanings[size_t(column)].isOfSlide());
        if (!isUsed && !table.bytes(0, column).isEmpty())
            contents.m_unusedColumns.append(table.text(0, column));
    }
    for (qsizetype row = 1; row < table.rowCount(); ++row) {
        if (table.isRowEmpty(row) || !rows.contains(row))
            continue;
        if (const Result<TableRow> made = contents.read(row))
            contents.m_rows.push_back(quint32(row));
        else
            contents.m_problems.append({row, made.error().message});
    }
    return contents;
}

TableRow TableContents::row(qsizetype place) const
{
    return read(m_rows.at(size_t(place))).value();
}

std::optional<qsizetype> TableContents::placeOf(qsizetype number) const
{
    const auto found =
        std::ranges::lower_bound(m_rows, number, {}, [](quint32 row) { return qsizetype(row); });
    const bool isThere = found != m_rows.end() && *found == number;
    return isThere ? std::optional<qsizetype>(found - m_rows.begin()) : std::nullopt;
}

void TableContents::exclude(const std::function<std::optional<QString>(const TableRow &)> &objection)
{
    std::erase_if(m_rows, [&](quint32 number) {
        const std::optional<QString> reason = objection(read(number).value());
        if (reason)
            m_problems.append({number, *reason});
        return reason.has_value();
    });
    std::ranges::sort(m_problems, {}, &RowProblem::number);
}

Result<TableRow> TableContents::read(qsizetype number) const
{
    const auto cell = [&](Kind kind) { return trimmedCell(m_table, number, columnOf(m_meanings, kind)); };
    RowTexts texts = m_reader.texts(number);
    if (texts.slides.isEmpty())
        return fail(u"no text"_s);
    if (texts.slides.size() > mostSlidesOfSlideshow)
        return fail(tooManyTexts(texts.slides.size()));
    const auto style = valueOf(cell(Kind::style), textStyleFromRawText, "style"_L1);
    if (!style)
        return std::unexpected(style.error());
    const auto shape = valueOf(cell(Kind::shape), aspectRatioFromRawText, "shape"_L1);
    if (!shape)
        return std::unexpected(shape.error());
    const QString caption = cell(Kind::caption);
    return TableRow{.number = number,
                    .slides = std::move(texts.slides),
                    .pictures = std::move(texts.pictures),
                    .style = *style,
                    .shape = *shape,
                    .batch = cell(Kind::batch),
                    .caption = caption.isEmpty() ? std::move(texts.caption) : caption};
}

QString countText(qsizetype slideshows, qsizetype rowsLeftOut)
{
    return (slideshows == 1 ? u"1 slideshow"_s : u"%1 slideshows"_s.arg(slideshows)) +
           (rowsLeftOut == 1 ? u", 1 row left out"_s : u", %1 rows left out"_s.arg(rowsLeftOut));
}

} // namespace mosslantern
