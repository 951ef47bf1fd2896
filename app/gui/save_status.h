#pragma once

#include "ui/common/screen_context.h"

#include <QtCore/QPointer>

namespace mosslantern {

/// Whether what was changed in the library is also on the disk.
class SaveStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    /// Why the last changes could not be written, a sentence without its full stop; empty when they are.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)
    /// Why no change can ever be saved, a clause without its full stop; empty when it can.
    Q_PROPERTY(QString readOnlyReason READ readOnlyReason NOTIFY contextChanged)

public:
    explicit SaveStatus(QObject *parent = nullptr)
        : QObject(parent)
    {}

    ScreenContext *context() const { return m_context; }
    void setContext(ScreenContext *context);

    QString error() const { return m_error; }
    QString readOnlyReason() const;

    /// Writes what is not written yet; whether there is nothing left to write.
    Q_INVOKABLE bool save();

signals:
    void contextChanged();
    void errorChanged();

private:
    void setError(const QString &error);

    QPointer<ScreenContext> m_context;
    QString m_error;
};

} // namespace mosslantern
