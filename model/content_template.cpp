#include "model/content_template.h"

namespace mosslantern {

ContentTemplate::ContentTemplate(const QString &name, const QString &content)
    : Record(recordKind)
    , m_name(name)
    , m_content(content)
    , m_createdAt(QDateTime::currentDateTimeUtc())
{}

ContentTemplate::ContentTemplate(const StoredIdentity &identity, const QString &name, const QString &content,
                                 const QDateTime &createdAt)
    : Record(recordKind, identity)
    , m_name(name)
    , m_content(content)
    , m_createdAt(createdAt)
{}

} // namespace mosslantern
