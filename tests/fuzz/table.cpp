#include "content/slide_content.h"
#include "content/table/delimited_text.h"
#include "content/table/table_contents.h"
#include "tests/fuzz/target.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

void tryContents(const Table &table, const std::optional<QString> &content)
{
    const auto contents = TableContents::read(table, meaningsOf(table), content);
    if (!contents)
        return;
    qsizetype rows = 0;
    for (qsizetype row = 1; row < table.rowCount(); ++row)
        rows += !table.isRowEmpty(row);
    expect(contents->count() + contents->problems().size() == rows, "every row is made or named");
    for (qsizetype place = 0; place < contents->count(); ++place) {
        const TableRow row = contents->row(place);
        expect(contents->placeOf(row.number) == place, "rows are found again");
        expect(row.pictures.size() == row.slides.size(), "a picture for each slide");
        expect(readSlideContent(row.content()) == row.slides, "texts come through the content");
    }
}

} // namespace

void mosslantern::tryBytes(QByteArrayView bytes)
{
    const Result<Table> table = readDelimitedText(bytes);
    if (!table)
        return;
    for (qsizetype row = 0; row < table->rowCount(); ++row) {
        for (qsizetype column = 0; column < table->columnCount(); ++column)
            expect(table->bytes(row, column).isValidUtf8(), "cells are UTF-8");
    }
    expect(table->rowCount() == 0 || !table->isRowEmpty(table->rowCount() - 1), "no empty rows at the end");
    tryContents(*table, {});
    tryContents(*table, uR"({"slides":[{"main":"{{main 1|x}}"},{"main":"}}","subtitle":"{{a}}{{"}],)"_s +
                            uR"("caption":"{{a}}"})"_s);
}
