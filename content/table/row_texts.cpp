#include "content/table/row_texts.h"

#include "content/slideshow_maker.h"
#include "content/table/field_text.h"

#include <algorithm>
#include <map>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Kind = ColumnMeaning::Kind;

/// The columns of each slide that has any, in the order of the slides.
std::map<int, std::map<Kind, qsizetype>> slideColumns(const std::vector<ColumnMeaning> &meanings)
{
    std::map<int, std::map<Kind, qsizetype>> slides;
    for (size_t column = 0; column < meanings.size(); ++column) {
        if (meanings[column].isOfSlide())
            slides[meanings[column].slide].try_emplace(meanings[column].kind, qsizetype(column));
    }
    return slides;
}

QString cell(const Table &table, qsizetype row, const std::map<Kind, qsizetype> &columns, Kind kind)
{
    const auto column = columns.find(kind);
    return column == columns.end() ? QString() : trimmedCell(table, row, column->second);
}

QHash<QString, qsizetype> headingsOf(const Table &table)
{
    QHash<QString, qsizetype> headings;
    for (qsizetype column = 0; column < table.columnCount(); ++column) {
        const QString name = foldedHeading(table.text(0, column));
        if (!name.isEmpty() && !headings.contains(name))
            headings.insert(name, column);
    }
    return headings;
}

} // namespace

QString tooManyTexts(qsizetype slides)
{
    return u"%1 slides; a slideshow has at most %2"_s.arg(slides).arg(mostSlidesOfSlideshow);
}

QString trimmedCell(const Table &table, qsizetype row, std::optional<qsizetype> column)
{
    return column ? table.text(row, *column).trimmed() : QString();
}

RowReader columnReader(const Table &table, const std::vector<ColumnMeaning> &meanings)
{
    RowReader reader;
    for (size_t column = 0; column < meanings.size(); ++column) {
        if (meanings[column].isOfSlide())
            reader.used.insert(qsizetype(column));
    }
    reader.texts = [table, slides = slideColumns(meanings)](qsizetype row) {
        RowTexts texts;
        for (const auto &[number, columns] : slides) {
            const SlideText text{cell(table, row, columns, Kind::main),
                                 cell(table, row, columns, Kind::subtitle)};
            if (text.main.isEmpty() && text.subtitle.isEmpty())
                continue;
            texts.slides.append(text);
            texts.pictures.append(cell(table, row, columns, Kind::image));
        }
        return texts;
    };
    return reader;
}

Result<RowReader> fieldReader(const Table &table, const std::vector<ColumnMeaning> &meanings,
                              const QString &content)
{
    struct Entry
    {
        FieldText main;
        FieldText subtitle;
        std::optional<qsizetype> image;
    };
    // A field in front makes no document of a text.
    const bool isPlain = content.trimmed().startsWith("{{"_L1);
    const auto texts = !content.isValidUtf16() ? fail(u"it holds half of a character."_s)
                       : isPlain               ? readSlideLines(content)
                                               : readSlideContent(content);
    if (!texts)
        return fail(u"The content cannot be used: "_s + texts.error().message);
    if (texts->size() > mostSlidesOfSlideshow)
        return fail(u"The content has %1."_s.arg(tooManyTexts(texts->size())));
    const QHash<QString, qsizetype> headings = headingsOf(table);
    const auto slides = slideColumns(meanings);
    RowReader reader;
    std::vector<Entry> entries;
    for (const SlideText &text : *texts) {
        Result<FieldText> main = FieldText::parse(text.main, headings, reader.used);
        Result<FieldText> subtitle = FieldText::parse(text.subtitle, headings, reader.used);
        if (!main || !subtitle)
            return std::unexpected(main ? subtitle.error() : main.error());
        Entry entry{*std::move(main), *std::move(subtitle), {}};
        if (const auto columns = slides.find(int(entries.size()) + 1); columns != slides.end()) {
            if (const auto image = columns->second.find(Kind::image); image != columns->second.end())
                entry.image = *reader.used.insert(image->second).first;
        }
        entries.push_back(std::move(entry));
    }
    Result<FieldText> caption =
        FieldText::parse(isPlain ? QString() : captionOf(content), headings, reader.used);
    if (!caption)
        return std::unexpected(caption.error());
    reader.texts = [table, entries = std::move(entries), caption = *std::move(caption)](qsizetype row) {
        RowTexts made;
        for (const Entry &entry : entries) {
            made.slides.append({entry.main.filled(table, row), entry.subtitle.filled(table, row)});
            made.pictures.append(trimmedCell(table, row, entry.image));
        }
        const bool hasText = std::ranges::any_of(made.slides, [](const SlideText &slide) {
            return !slide.main.trimmed().isEmpty() || !slide.subtitle.trimmed().isEmpty();
        });
        if (!hasText)
            return RowTexts();
        made.caption = caption.filled(table, row);
        return made;
    };
    return reader;
}

} // namespace mosslantern
