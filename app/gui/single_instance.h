#pragma once

#include "model/library_location.h"

#include <QtNetwork/QLocalServer>

namespace mosslantern {

/// Lets the first window of a library know when the application is started again for the same library.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const LibraryLocation &location, QObject *parent = nullptr);

    /// Asks the application that has the library open to show itself; whether there is one.
    bool raiseOther() const;

    /// Listens for such requests from now on; whether that is possible.
    bool listen();

signals:
    /// `token` is the right to take the foreground that a Wayland compositor gave the other process, or
    /// empty.
    void raiseRequested(const QByteArray &token);

private:
    void answer();

    QString m_name;
    QLocalServer m_server;
};

} // namespace mosslantern
