#include "app/gui/save_status.h"

#include "model/change.h"
#include "model/store.h"

namespace mosslantern {

void SaveStatus::setContext(ScreenContext *context)
{
    if (m_context == context)
        return;
    if (m_context)
        m_context->store().disconnect(this);
    m_context = context;
    if (context) {
        connect(&context->store(), &Store::saveFailed, this, &SaveStatus::setError);
        connect(&context->store(), &Store::saved, this, [this] { setError({}); });
    }
    emit contextChanged();
}

QString SaveStatus::readOnlyReason() const
{
    return m_context ? m_context->store().readOnlyReason() : QString();
}

bool SaveStatus::save()
{
    const Result<> written = m_context->store().flush();
    setError(written ? QString() : written.error().message);
    return written.has_value();
}

void SaveStatus::setError(const QString &error)
{
    change(*this, m_error, error, &SaveStatus::errorChanged);
}

} // namespace mosslantern
