#pragma once

#include "model/record.h"

#include <string>

namespace mosslantern {

/// Name of the table that holds the records of a kind.
const char *tableOf(RecordKind kind);

/// Reads the table in the store's order: row, id, then the columns of the kind's fields.
std::string selectStatement(RecordKind kind);

/// Reads the same of the record with a given row.
std::string selectOneStatement(RecordKind kind);

/// Writes a record, new or not, given the values of the same columns.
std::string upsertStatement(RecordKind kind);

/// Removes the record with a given row.
std::string deleteStatement(RecordKind kind);

} // namespace mosslantern
