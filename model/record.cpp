#include "model/record.h"

#include "model/store.h"

namespace mosslantern {

Record::Record(RecordKind kind)
    : m_kind(kind)
    , m_id(QUuid::createUuid())
{}

Record::Record(RecordKind kind, const StoredIdentity &identity)
    : m_kind(kind)
    , m_id(identity.m_id)
    , m_row(identity.m_row)
{}

Record::~Record() = default;

void Record::announce(const Notices &notices)
{
    for (const Notice &notice : notices) {
        if (notice.record)
            notice.announce(notice.record);
    }
}

void Record::noteFieldChanged()
{
    if (m_store)
        m_store->noteUnsaved(this);
    noteRelationChanged();
}

void Record::noteRelationChanged()
{
    emit changed();
    if (m_store)
        m_store->noteChanged(this);
}

void Record::sever(Notices &) {}

void Record::entered() {}

} // namespace mosslantern
