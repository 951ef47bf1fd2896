#include "model/live_query.h"

namespace mosslantern {

namespace {

/// A new filter that changes more runs of rows than this is shown as a reset.
constexpr size_t maximalRuns = 500;

/// How many runs of records there are that are not in the other list.
template <typename IsInOther>
size_t runs(const std::vector<Record *> &rows, const IsInOther &isInOther)
{
    size_t count = 0;
    bool wasInOther = true;
    for (const Record *record : rows) {
        const bool isIn = isInOther(record);
        count += wasInOther && !isIn ? 1 : 0;
        wasInOther = isIn;
    }
    return count;
}

} // namespace

LiveQueryBase::LiveQueryBase(Store &store, RecordKind kind, RecordFilter filter, RecordOrder order,
                             QObject *parent)
    : QAbstractListModel(parent)
    , m_store(&store)
    , m_kind(kind)
    , m_filter(std::move(filter))
    , m_order(std::move(order))
    , m_rows(evaluate())
    , m_members(m_rows.cbegin(), m_rows.cend())
{
    m_store->attach(this);
}

LiveQueryBase::~LiveQueryBase()
{
    if (m_store)
        m_store->detach(this);
}

int LiveQueryBase::indexOf(const Record *record) const
{
    return m_members.contains(record) ? static_cast<int>(place(record) - m_rows.cbegin()) : -1;
}

int LiveQueryBase::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant LiveQueryBase::data(const QModelIndex &index, int role) const
{
    if (role != RecordRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return QVariant::fromValue<QObject *>(m_rows[static_cast<size_t>(index.row())]);
}

QHash<int, QByteArray> LiveQueryBase::roleNames() const
{
    return {{RecordRole, "record"}};
}

void LiveQueryBase::setRecordFilter(RecordFilter filter)
{
    m_filter = std::move(filter);
    if (m_store)
        showRows(evaluate());
}

bool LiveQueryBase::comesBefore(const Record *a, const Record *b) const
{
    if (m_order) {
        if (m_order(*a, *b))
            return true;
        if (m_order(*b, *a))
            return false;
    }
    return a->row() < b->row();
}

LiveQueryBase::Rows LiveQueryBase::evaluate() const
{
    Rows rows;
    std::ranges::copy_if(m_store->records(m_kind), std::back_inserter(rows),
                         [this](const Record *record) { return passes(record); });
    if (m_order)
        std::ranges::stable_sort(rows, [this](const Record *a, const Record *b) { return m_order(*a, *b); });
    return rows;
}

/// Where a member stands. The order usually finds it at once, unless the change that is being shown has moved
/// it.
LiveQueryBase::Rows::const_iterator LiveQueryBase::place(const Record *record) const
{
    const auto guess =
        std::lower_bound(m_rows.cbegin(), m_rows.cend(), record,
                         [this](const Record *a, const Record *b) { return comesBefore(a, b); });
    if (guess != m_rows.cend() && *guess == record)
        return guess;
    return std::find(m_rows.cbegin(), m_rows.cend(), record);
}

/// Shows what has become of a record: it may be new, changed, removed, or none of this query's business.
void LiveQueryBase::update(Record *record)
{
    if (m_isShowingFilter) {
        m_missedUpdate = true;
        return;
    }
    const bool belongs = record->store() == m_store && passes(record);
    const bool isMember = m_members.contains(record);
    if (belongs && isMember)
        moveRow(place(record));
    else if (belongs)
        insertRow(record);
    else if (isMember)
        drop(record);
}

void LiveQueryBase::insertRow(Record *record)
{
    const auto place = std::ranges::lower_bound(
        m_rows, record, [this](const Record *a, const Record *b) { return comesBefore(a, b); });
    const int row = static_cast<int>(place - m_rows.begin());
    beginInsertRows({}, row, row);
    m_rows.insert(place, record);
    m_members.insert(record);
    endInsertRows();
    emit countChanged();
}

void LiveQueryBase::moveRow(Rows::const_iterator from)
{
    Record *const record = *from;
    const auto before = [this](const Record *a, const Record *b) { return comesBefore(a, b); };
    const auto row = from - m_rows.cbegin();
    auto to = std::lower_bound(m_rows.cbegin(), from, record, before);
    if (to == from)
        to = std::lower_bound(from + 1, m_rows.cend(), record, before);
    const auto destination = to - m_rows.cbegin();
    if (destination < row || destination > row + 1) {
        beginMoveRows({}, static_cast<int>(row), static_cast<int>(row), {}, static_cast<int>(destination));
        if (destination < row)
            std::rotate(m_rows.begin() + destination, m_rows.begin() + row, m_rows.begin() + row + 1);
        else
            std::rotate(m_rows.begin() + row, m_rows.begin() + row + 1, m_rows.begin() + destination);
        endMoveRows();
    }
    const QModelIndex changed = index(indexOf(record));
    if (changed.isValid())
        emit dataChanged(changed, changed);
}

void LiveQueryBase::drop(Record *record)
{
    const auto at = place(record);
    const int row = static_cast<int>(at - m_rows.cbegin());
    beginRemoveRows({}, row, row);
    m_rows.erase(at);
    m_members.remove(record);
    endRemoveRows();
    emit countChanged();
}

/// Goes from the present rows to those that a new filter wants, run by run.
void LiveQueryBase::showRows(const Rows &wanted)
{
    const QSet<const Record *> wantedMembers(wanted.cbegin(), wanted.cend());
    const auto isWanted = [&](const Record *record) { return wantedMembers.contains(record); };
    const auto isMember = [&](const Record *record) { return m_members.contains(record); };
    if (runs(m_rows, isWanted) + runs(wanted, isMember) > maximalRuns) {
        reset(wanted);
        return;
    }

    m_isShowingFilter = true;
    for (size_t end = m_rows.size(); end > 0;) {
        const auto last =
            std::find_if_not(m_rows.rend() - static_cast<qsizetype>(end), m_rows.rend(), isWanted);
        if (last == m_rows.rend())
            break;
        const auto first = std::find_if(last, m_rows.rend(), isWanted);
        end = static_cast<size_t>(m_rows.rend() - first);
        beginRemoveRows({}, static_cast<int>(end), static_cast<int>(m_rows.rend() - last) - 1);
        for (auto record = last; record != first; ++record)
            m_members.remove(*record);
        m_rows.erase(first.base(), last.base());
        endRemoveRows();
    }
    for (size_t row = 0; row < wanted.size(); ++row) {
        if (isMember(wanted[row]))
            continue;
        const auto first = wanted.cbegin() + static_cast<qsizetype>(row);
        const auto last = std::find_if(first, wanted.cend(), isMember);
        beginInsertRows({}, static_cast<int>(row), static_cast<int>(last - wanted.cbegin()) - 1);
        m_rows.insert(m_rows.cbegin() + static_cast<qsizetype>(row), first, last);
        const qsizetype next = last - wanted.cbegin();
        m_members.unite({first, last});
        endInsertRows();
        row = static_cast<size_t>(next);
    }
    m_isShowingFilter = false;
    emit countChanged();
    if (std::exchange(m_missedUpdate, false))
        reset(evaluate());
}

void LiveQueryBase::reset(const Rows &rows)
{
    beginResetModel();
    m_rows = rows;
    m_members = {rows.cbegin(), rows.cend()};
    endResetModel();
    emit countChanged();
}

void LiveQueryBase::loseStore()
{
    m_store = nullptr;
    reset({});
}

} // namespace mosslantern
