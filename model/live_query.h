#pragma once

#include "model/store.h"

#include <QtCore/QAbstractListModel>

namespace mosslantern {

/// The records of one type that pass a filter, in a sorted order, as a list model that follows every insert,
/// change and removal in the store. Records that compare equal, and all records when there is no order, stand
/// in the store's order. Empty once the store is gone.
///
/// Filter and order may look only at the record's own fields and relations, whose changes the record
/// announces.
class LiveQueryBase : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    /// The only role, named "record": the record as a QObject.
    enum Role { RecordRole = Qt::UserRole };

    ~LiveQueryBase() override;

    /// Number of rows.
    int count() const { return static_cast<int>(m_rows.size()); }

    /// Place of a record in the list, -1 when it is not in it.
    int indexOf(const Record *record) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

protected:
    using RecordFilter = std::function<bool(const Record &)>;
    using RecordOrder = std::function<bool(const Record &, const Record &)>;

    LiveQueryBase(Store &store, RecordKind kind, RecordFilter filter, RecordOrder order, QObject *parent);

    const std::vector<Record *> &rows() const { return m_rows; }
    void setRecordFilter(RecordFilter filter);

private:
    friend class Store;

    using Rows = std::vector<Record *>;

    bool comesBefore(const Record *a, const Record *b) const;
    bool passes(const Record *record) const { return !m_filter || m_filter(*record); }
    Rows evaluate() const;
    Rows::const_iterator place(const Record *record) const;
    void update(Record *record);
    void insertRow(Record *record);
    void moveRow(Rows::const_iterator from);
    void drop(Record *record);
    void showRows(const Rows &wanted);
    void reset(const Rows &rows);
    void loseStore();

    Store *m_store;
    RecordKind m_kind;
    RecordFilter m_filter;
    RecordOrder m_order;
    Rows m_rows;
    QSet<const Record *> m_members;
    bool m_isShowingFilter = false;
    bool m_missedUpdate = false;
};

/// The order of records by `createdAt`, newest first; of one millisecond, the last inserted first.
template <typename T>
bool newestFirst(const T &a, const T &b)
{
    return std::pair(a.createdAt(), a.row()) > std::pair(b.createdAt(), b.row());
}

/// A live query for one record type.
template <std::derived_from<Record> T>
class LiveQuery : public LiveQueryBase
{
public:
    /// Whether a record is in the list.
    using Filter = std::function<bool(const T &)>;
    /// Whether the first record comes before the second: a strict weak ordering.
    using Order = std::function<bool(const T &, const T &)>;

    explicit LiveQuery(Store &store, Filter filter = {}, Order order = {}, QObject *parent = nullptr)
        : LiveQueryBase(store, T::recordKind, untyped(std::move(filter)), untyped(std::move(order)), parent)
    {}

    /// The record at a row of the list.
    T *at(int row) const { return static_cast<T *>(rows()[static_cast<size_t>(row)]); }

    /// The whole list.
    std::vector<T *> records() const
    {
        std::vector<T *> all;
        all.reserve(rows().size());
        for (Record *record : rows())
            all.push_back(static_cast<T *>(record));
        return all;
    }

    /// Shows what passes another filter, with the row signals of what comes and goes, or a reset when that is
    /// many runs of rows.
    void setFilter(Filter filter) { setRecordFilter(untyped(std::move(filter))); }

private:
    static RecordFilter untyped(Filter filter)
    {
        if (!filter)
            return {};
        return [filter = std::move(filter)](const Record &record) {
            return filter(static_cast<const T &>(record));
        };
    }

    static RecordOrder untyped(Order order)
    {
        if (!order)
            return {};
        return [order = std::move(order)](const Record &a, const Record &b) {
            return order(static_cast<const T &>(a), static_cast<const T &>(b));
        };
    }
};

} // namespace mosslantern
