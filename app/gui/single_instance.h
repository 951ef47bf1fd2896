#pragma once

#include "model/library_location.h"

#include <QtCore/QThread>
#include <QtNetwork/QLocalServer>

#include <atomic>

class QLocalSocket;

namespace mosslantern {

/// Lets the first window of a library know when the application is started again for the same library.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const LibraryLocation &location, QObject *parent = nullptr);
    ~SingleInstance() override;
    Q_DISABLE_COPY_MOVE(SingleInstance)

    /// Asks the application that has the library open to show itself; whether there is one.
    bool raiseOther() const;

    /// Listens for such requests from now on; whether that is possible.
    bool listen();

    /// Whether this thread is known to be at work, so that its event loop may take its time: requests are
    /// then answered before it gets to them. Otherwise an application that hangs gives no answer.
    void setIsAtWork(bool isAtWork) { m_isAtWork = isAtWork; }

signals:
    /// `token` is the right to take the foreground that a Wayland compositor gave the other process, or
    /// empty.
    void raiseRequested(const QByteArray &token);

private:
    void accept();
    void answer(QLocalSocket *socket);

    QString m_name;
    QThread m_thread; // of the server
    QLocalServer *m_server;
    std::atomic<bool> m_isAtWork = false;
};

} // namespace mosslantern
