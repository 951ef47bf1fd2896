#pragma once

#include "model/record.h"

#include <QtCore/QList>

#include <algorithm>
#include <limits>

namespace mosslantern {

/// A list of records in the order of their store, which a restart therefore brings back; records that are
/// not inserted yet stand at its end, as they came.
template <typename T>
class RecordList
{
public:
    /// The list.
    const QList<T *> &records() const { return m_records; }

    /// Puts a record in its place.
    void add(T *record)
    {
        const auto place = std::upper_bound(m_records.cbegin(), m_records.cend(), record, comesBefore);
        m_records.insert(place - m_records.cbegin(), record);
    }

    /// Takes out a record, which must be in the list.
    void remove(T *record)
    {
        const auto [first, last] =
            std::equal_range(m_records.cbegin(), m_records.cend(), record, comesBefore);
        const auto place = std::find(first, last, record);
        Q_ASSERT(place != last);
        m_records.removeAt(place - m_records.cbegin());
    }

    /// Puts a record in its place that stood at the end because it had no row.
    void settle(T *record)
    {
        m_records.removeAt(m_records.lastIndexOf(record));
        add(record);
    }

    /// Gives all records away.
    QList<T *> takeAll() { return std::exchange(m_records, {}); }

private:
    static bool comesBefore(const T *a, const T *b) { return place(a) < place(b); }

    static qint64 place(const T *record)
    {
        return record->row() == 0 ? std::numeric_limits<qint64>::max() : record->row();
    }

    QList<T *> m_records;
};

} // namespace mosslantern
