#pragma once

#include "model/record.h"

#include <QtCore/QDateTime>

namespace mosslantern {

/// A slide-content text, saved under a name.
class ContentTemplate : public Record
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString content READ content CONSTANT)
    Q_PROPERTY(QDateTime createdAt READ createdAt CONSTANT)

public:
    static constexpr RecordKind recordKind = RecordKind::contentTemplate;

    /// A new template.
    ContentTemplate(const QString &name, const QString &content);
    ContentTemplate(const StoredIdentity &identity, const QString &name, const QString &content,
                    const QDateTime &createdAt);

    /// The name for people; need not be unique.
    QString name() const { return m_name; }

    /// The text as it was saved; not necessarily one that can be read.
    QString content() const { return m_content; }

    /// In UTC, to the millisecond.
    QDateTime createdAt() const { return m_createdAt; }

private:
    QString m_name;
    QString m_content;
    QDateTime m_createdAt;
};

} // namespace mosslantern
