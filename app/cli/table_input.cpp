#include "app/cli/table_input.h"

#include "app/cli/output.h"
#include "app/cli/text_input.h"
#include "content/table/delimited_text.h"

#include <QtCore/QFileInfo>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<TableContents> readTable(const QString &file, const Arguments &arguments)
{
    Result<RowNumbers> rows = RowNumbers();
    if (const auto chosen = arguments.value("rows"_L1))
        rows = RowNumbers::parse(*chosen);
    if (!rows)
        return fail(u"--rows: "_s + rows.error().message);
    std::optional<QString> content;
    if (const auto contentFile = arguments.value("content"_L1)) {
        Result<QString> text = readText(*contentFile);
        if (!text)
            return std::unexpected(text.error());
        content = *std::move(text);
    }
    const Result<QByteArray> bytes = readBytes(file);
    if (!bytes)
        return std::unexpected(bytes.error());
    const Result<Table> table = readDelimitedText(*bytes);
    if (!table)
        return std::unexpected(table.error());
    return TableContents::read(*table, meaningsOf(*table), content, *rows);
}

Result<> readTableRequest(const Arguments &arguments, BatchRequest &request)
{
    const QString file = *arguments.value("table"_L1);
    const Result<TableContents> contents = readTable(file, arguments);
    if (!contents)
        return std::unexpected(contents.error());
    for (const RowProblem &problem : contents->problems())
        report(rowName(problem.number) + u": "_s + problem.reason);
    if (contents->count() == 0)
        return fail(u"No row of the table can be used."_s);
    request.rowsLeftOut = contents->problems().size();
    request.tableFolder = file == "-"_L1 ? QString() : QFileInfo(file).absolutePath();
    request.prepared.emplace();
    for (qsizetype place = 0; place < contents->count(); ++place) {
        const TableRow row = contents->row(place);
        SlideDesign design = request.design;
        if (row.style)
            design.setTextStyle(*row.style);
        design.shape = row.shape.value_or(design.shape);
        request.prepared->push_back(
            {row.content(), design, row.pictures, rowName(row.number), row.batch, row.caption});
    }
    return {};
}

QString rowName(qsizetype number)
{
    return u"row %1"_s.arg(number);
}

} // namespace mosslantern
