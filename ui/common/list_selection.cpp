#include "ui/common/list_selection.h"

#include <algorithm>

namespace mosslantern {

void ListSelection::select(Record *record)
{
    if (m_record == record)
        return;
    disconnect(m_removed);
    m_record = record;
    if (record)
        m_removed = connect(record, &Record::removed, this, &ListSelection::letGo);
    emit changed();
}

void ListSelection::moveBy(int rows)
{
    if (m_list.count() == 0)
        return;
    const int place = std::clamp(row() + rows, 0, m_list.count() - 1);
    select(qobject_cast<Record *>(m_list.index(place).data(LiveQueryBase::RecordRole).value<QObject *>()));
}

} // namespace mosslantern
