#pragma once

#include "model/error.h"
#include "model/record.h"

#include <QtCore/QByteArrayView>

#include <array>

namespace SQLite {
class Database;
}

namespace mosslantern {

/// A hash of the values of one stored row, the same on every machine.
class RowHash
{
public:
    explicit RowHash(RecordKind kind);

    void add(qint64 value);
    void add(double value);
    void add(QByteArrayView bytes);
    void addNull();

    /// Never 0.
    quint64 value() const;

private:
    void mix(quint64 word);

    quint64 m_state;
};

/// What tells that the rows of a table are those that were saved: how many there are, and the sum of their
/// hashes.
struct Tally
{
    qint64 rows = 0;
    quint64 sum = 0;

    void add(quint64 hash);
    void remove(quint64 hash);

    friend bool operator==(const Tally &, const Tally &) = default;
};

using Tallies = std::array<Tally, recordKindCount>;

/// The tallies of a file; none when no save has written them yet. Throws SQLite::Exception.
Result<std::optional<Tallies>> readTallies(SQLite::Database &database);

/// To be part of a transaction. Throws SQLite::Exception.
void writeTallies(SQLite::Database &database, const Tallies &tallies);

} // namespace mosslantern
