#include "app/cli/commands.h"
#include "app/cli/output.h"
#include "app/cli/record_json.h"
#include "app/cli/table_input.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

void printJson(const TableContents &contents)
{
    Json problems = Json::array();
    for (const RowProblem &problem : contents.problems())
        problems.push_back({{"row", problem.number}, {"reason", toJson(problem.reason)}});
    Json unused = Json::array();
    for (const QString &column : contents.unusedColumns())
        unused.push_back(toJson(column));
    writeJson({{"slideshows", contents.count()}, {"problems", problems}, {"unusedColumns", unused}});
}

int check(const Arguments &arguments)
{
    const Result<TableContents> contents = readTable(arguments.positionals().first(), arguments);
    if (!contents)
        return failedWith(contents.error());
    if (arguments.has("json"_L1)) {
        printJson(*contents);
    } else {
        writeRow({countText(contents->count(), contents->problems().size())});
        for (const RowProblem &problem : contents->problems())
            writeRow({rowName(problem.number), problem.reason});
        for (const QString &column : contents->unusedColumns())
            writeRow({u"unused column"_s, column});
    }
    return contents->problems().isEmpty() && contents->count() > 0 ? done : failed;
}

} // namespace

std::vector<Command> tableCommands()
{
    return {{
        .name = "table check"_L1,
        .usage = "FILE|- [--content FILE] [--rows ROWS] [--json]"_L1,
        .fewestOperands = 1,
        .mostOperands = 1,
        .summary = "tell what slideshows a table makes"_L1,
        .details =
            "Prints how many slideshows the rows of a table make, which rows cannot be used and why, and the "
            "columns that mean nothing. Pictures are not looked up. Exit status 1 when a row cannot be "
            "used."_L1,
        .options = {{"content"_L1, "FILE"_L1, "the content whose {{fields}} the columns fill"_L1},
                    {"rows"_L1, "ROWS"_L1, "only these rows below the headings, such as 1-20,35"_L1},
                    {"json"_L1, {}, "print an object as JSON"_L1}},
        .usesLibrary = false,
        .run = check,
    }};
}

} // namespace mosslantern
