#include "model/tally.h"

#include "model/record_table.h"

#include <QtCore/QtEndian>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace mosslantern {

using namespace Qt::StringLiterals;

RowHash::RowHash(RecordKind kind)
    : m_state(static_cast<quint64>(kind) + 1)
{}

void RowHash::mix(quint64 word)
{
    // An odd factor with as many ones as zeros (2^64 divided by the golden ratio) carries each bit upwards;
    // the shift brings the high ones down again.
    constexpr quint64 factor = 0x9E37'79B9'7F4A'7C15;
    m_state = (m_state ^ word) * factor;
    m_state ^= m_state >> 29;
}

void RowHash::add(qint64 value)
{
    mix(1);
    mix(static_cast<quint64>(value));
}

void RowHash::add(double value)
{
    mix(2);
    mix(std::bit_cast<quint64>(value == 0 ? 0.0 : value)); // SQLite stores no negative zero
}

void RowHash::add(QByteArrayView bytes)
{
    mix(3);
    mix(static_cast<quint64>(bytes.size()));
    for (qsizetype i = 0; i < bytes.size(); i += 8) {
        char word[8] = {};
        std::memcpy(word, bytes.data() + i, static_cast<size_t>(std::min<qsizetype>(8, bytes.size() - i)));
        mix(qFromLittleEndian<quint64>(word));
    }
}

void RowHash::addNull()
{
    mix(4);
}

quint64 RowHash::value() const
{
    RowHash last = *this;
    last.mix(0);
    last.mix(0);
    return std::max<quint64>(last.m_state, 1);
}

void Tally::add(quint64 hash)
{
    ++rows;
    sum += hash;
}

void Tally::remove(quint64 hash)
{
    --rows;
    sum -= hash;
}

Result<std::optional<Tallies>> readTallies(SQLite::Database &database)
{
    Tallies tallies;
    int found = 0;
    for (int i = 0; i < recordKindCount; ++i) {
        SQLite::Statement statement(database, "SELECT rows, sum FROM tally WHERE name = ?");
        statement.bind(1, tableOf(static_cast<RecordKind>(i)));
        if (!statement.executeStep())
            return fail(u"a tally of its tables is missing"_s);
        if (statement.isColumnNull(0))
            continue;
        ++found;
        tallies[static_cast<size_t>(i)] = {statement.getColumn(0).getInt64(),
                                           static_cast<quint64>(statement.getColumn(1).getInt64())};
    }
    if (found != 0 && found != recordKindCount)
        return fail(u"a tally of its tables is missing"_s);
    return found == 0 ? std::nullopt : std::optional(tallies);
}

void writeTallies(SQLite::Database &database, const Tallies &tallies)
{
    SQLite::Statement statement(database, "UPDATE tally SET rows = ?, sum = ? WHERE name = ?");
    for (int i = 0; i < recordKindCount; ++i) {
        const Tally &tally = tallies[static_cast<size_t>(i)];
        statement.reset();
        statement.bind(1, static_cast<int64_t>(tally.rows));
        statement.bind(2, static_cast<int64_t>(tally.sum));
        statement.bind(3, tableOf(static_cast<RecordKind>(i)));
        statement.exec();
    }
}

} // namespace mosslantern
