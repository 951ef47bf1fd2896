#include "content/table/table_contents.h"

#include "content/slide_content.h"
#include "content/table/field_text.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>

#include <functional>
#include <map>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostNumbered = 1000;

/// The columns of one slide.
struct SlideColumns
{
    std::optional<qsizetype> main;
    std::optional<qsizetype> subtitle;
    std::optional<qsizetype> image;
};

/// Which column means what. Of several with one heading the first counts.
struct Headings
{
    QHash<QString, qsizetype> all;
    std::map<int, SlideColumns> slides; // by their numbers
    std::optional<qsizetype> style;
    std::optional<qsizetype> shape;

    bool hasTexts() const
    {
        return std::ranges::any_of(
            slides, [](const auto &slide) { return slide.second.main || slide.second.subtitle; });
    }
};

void understandNumbered(Headings &headings, const QString &name, qsizetype column)
{
    static const QRegularExpression numbered(
        u"^(main|slide|text|subtitle|sub|subtext|image|picture)([0-9]{0,4})$"_s);
    const QRegularExpressionMatch match = numbered.match(name);
    const int number = match.captured(2).isEmpty() ? 1 : match.captured(2).toInt();
    if (!match.hasMatch() || number < 1 || number > mostNumbered)
        return;
    const QString kind = match.captured(1);
    SlideColumns &slide = headings.slides[number];
    auto &place = kind.startsWith("sub"_L1)                    ? slide.subtitle
                  : kind == "image"_L1 || kind == "picture"_L1 ? slide.image
                                                               : slide.main;
    place = place.value_or(column);
}

Headings headingsOf(const Table &table)
{
    Headings headings;
    for (qsizetype column = 0; column < table.columnCount(); ++column) {
        const QString name = foldedHeading(table.text(0, column));
        if (name.isEmpty() || headings.all.contains(name))
            continue;
        headings.all.insert(name, column);
        if (name == "style"_L1)
            headings.style = column;
        else if (name == "shape"_L1)
            headings.shape = column;
        else
            understandNumbered(headings, name, column);
    }
    return headings;
}

/// A slide's texts in a row; nothing makes no slide.
struct RowSlide
{
    SlideText text;
    QString picture;
};
using RowSlides = std::function<std::vector<RowSlide>(qsizetype row)>;

QString cellText(const Table &table, qsizetype row, std::optional<qsizetype> column)
{
    return column ? table.text(row, *column).trimmed() : QString();
}

RowSlides slidesFromColumns(const Table &table, const Headings &headings, std::set<qsizetype> &used)
{
    for (const auto &[number, slide] : headings.slides) {
        for (const auto &column : {slide.main, slide.subtitle, slide.image})
            if (column)
                used.insert(*column);
    }
    return [&table, slides = headings.slides](qsizetype row) {
        std::vector<RowSlide> made;
        for (const auto &[number, slide] : slides) {
            RowSlide next{{cellText(table, row, slide.main), cellText(table, row, slide.subtitle)},
                          cellText(table, row, slide.image)};
            if (!next.text.main.isEmpty() || !next.text.subtitle.isEmpty())
                made.push_back(std::move(next));
        }
        return made;
    };
}

Result<RowSlides> slidesFromFields(const Table &table, const Headings &headings, const QString &content,
                                   std::set<qsizetype> &used)
{
    struct Entry
    {
        FieldText main;
        FieldText subtitle;
        std::optional<qsizetype> image;
    };
    // A field in front makes no document of a text.
    const auto texts =
        content.trimmed().startsWith("{{"_L1) ? readSlideLines(content) : readSlideContent(content);
    if (!texts)
        return fail(u"The content cannot be used: "_s + texts.error().message);
    std::vector<Entry> entries;
    for (const SlideText &text : *texts) {
        Result<FieldText> main = FieldText::parse(text.main, headings.all, used);
        Result<FieldText> subtitle = FieldText::parse(text.subtitle, headings.all, used);
        if (!main || !subtitle)
            return std::unexpected(main ? subtitle.error() : main.error());
        const auto columns = headings.slides.find(int(entries.size()) + 1);
        const auto image = columns == headings.slides.end() ? std::nullopt : columns->second.image;
        if (image)
            used.insert(*image);
        entries.push_back({*std::move(main), *std::move(subtitle), image});
    }
    return [&table, entries = std::move(entries)](qsizetype row) {
        std::vector<RowSlide> made;
        bool hasText = false;
        for (const Entry &entry : entries) {
            made.push_back({{entry.main.filled(table, row), entry.subtitle.filled(table, row)},
                            cellText(table, row, entry.image)});
            hasText |=
                !made.back().text.main.trimmed().isEmpty() || !made.back().text.subtitle.trimmed().isEmpty();
        }
        return hasText ? made : std::vector<RowSlide>();
    };
}

/// A value from its column; nothing when the cell is empty.
template <typename T>
Result<std::optional<T>> valueIn(const Table &table, qsizetype row, std::optional<qsizetype> column,
                                 std::optional<T> (*fromRawText)(QStringView), QLatin1StringView what)
{
    const QString text = cellText(table, row, column);
    if (text.isEmpty())
        return std::optional<T>();
    const std::optional<T> value = fromRawText(text.toLower());
    if (!value)
        return fail(u"“%1” is no %2"_s.arg(text, what));
    return value;
}

Result<TableRow> rowOf(const Table &table, qsizetype row, const Headings &headings, const RowSlides &slides)
{
    TableRow made{.number = row, .content = {}, .pictures = {}, .style = {}, .shape = {}};
    SlideContentJSON document;
    for (const RowSlide &slide : slides(row)) {
        document.slides.append({slide.text.main, slide.text.subtitle.isEmpty() ? std::optional<QString>()
                                                                               : slide.text.subtitle});
        made.pictures.append(slide.picture);
    }
    if (document.slides.isEmpty())
        return fail(u"no text"_s);
    const auto style = valueIn(table, row, headings.style, textStyleFromRawText, "style"_L1);
    if (!style)
        return std::unexpected(style.error());
    const auto shape = valueIn(table, row, headings.shape, aspectRatioFromRawText, "shape"_L1);
    if (!shape)
        return std::unexpected(shape.error());
    Result<QString> content = document.encode();
    if (!content)
        return std::unexpected(content.error());
    made.content = *std::move(content);
    made.style = *style;
    made.shape = *shape;
    return made;
}

} // namespace

Result<TableContents> tableContents(const Table &table, const std::optional<QString> &content,
                                    const RowNumbers &rows)
{
    if (table.rowCount() == 0)
        return fail(u"The table is empty."_s);
    const Headings headings = headingsOf(table);
    std::set<qsizetype> used;
    for (const auto &column : {headings.style, headings.shape})
        if (column)
            used.insert(*column);
    if (!content && !headings.hasTexts()) {
        return fail(u"No column is called “main 1”, “subtitle 1” and so on; where the columns are fields, a "
                    "content with {{fields}} is needed."_s);
    }
    const Result<RowSlides> slides = content ? slidesFromFields(table, headings, *content, used)
                                             : Result<RowSlides>(slidesFromColumns(table, headings, used));
    if (!slides)
        return std::unexpected(slides.error());

    TableContents contents;
    for (qsizetype column = 0; column < table.columnCount(); ++column) {
        if (!used.contains(column) && !table.bytes(0, column).isEmpty())
            contents.unusedColumns.append(table.text(0, column));
    }
    for (qsizetype row = 1; row < table.rowCount(); ++row) {
        if (table.isRowEmpty(row) || !rows.contains(row))
            continue;
        Result<TableRow> made = rowOf(table, row, headings, *slides);
        if (made)
            contents.rows.push_back(*std::move(made));
        else
            contents.problems.append({row, made.error().message});
    }
    return contents;
}

} // namespace mosslantern
