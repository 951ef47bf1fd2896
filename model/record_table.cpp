#include "model/record_table.h"

#include "model/slide_style.h"

#include <array>

namespace mosslantern {

namespace {

using Columns = std::vector<std::string>;

struct Table
{
    const char *name;
    Columns columns;
};

Columns withStyle(Columns columns)
{
    forEachStyleValue([&](const char *name, auto) { columns.emplace_back(name); });
    return columns;
}

const Table &table(RecordKind kind)
{
    static const std::array<Table, recordKindCount> tables{{
        {"collection", {"name", "createdAt"}},
        {"asset", {"filename", "name", "collection"}},
        {"slideshow", {"createdAt", "aspectRatio", "collection", "batchId", "batchName", "caption"}},
        {"slide", withStyle({"slideshow", "asset", "imageFilename", "text", "subtitle", "\"order\""})},
        {"slidePreset", withStyle({"name", "createdAt"})},
        {"contentTemplate", {"name", "content", "createdAt"}},
    }};
    return tables[static_cast<size_t>(kind)];
}

std::string selectFrom(RecordKind kind)
{
    std::string columns = "row, id";
    for (const std::string &column : table(kind).columns)
        columns += ", " + column;
    return "SELECT " + columns + " FROM " + tableOf(kind);
}

} // namespace

const char *tableOf(RecordKind kind)
{
    return table(kind).name;
}

std::string selectStatement(RecordKind kind)
{
    return selectFrom(kind) + " ORDER BY row";
}

std::string selectOneStatement(RecordKind kind)
{
    return selectFrom(kind) + " NOT INDEXED WHERE row = ?";
}

std::string upsertStatement(RecordKind kind)
{
    std::string columns = "row, id";
    std::string values = "?, ?";
    std::string assignments;
    for (const std::string &column : table(kind).columns) {
        columns += ", " + column;
        values += ", ?";
        assignments += (assignments.empty() ? "" : ", ") + column + " = excluded." + column;
    }
    return std::string("INSERT INTO ") + tableOf(kind) + " (" + columns + ") VALUES (" + values +
           ") ON CONFLICT (row) DO UPDATE SET " + assignments;
}

std::string deleteStatement(RecordKind kind)
{
    return std::string("DELETE FROM ") + tableOf(kind) + " WHERE row = ?";
}

} // namespace mosslantern
