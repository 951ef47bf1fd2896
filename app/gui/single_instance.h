#pragma once

#include "app/gui/window_request.h"
#include "model/library_location.h"

#include <QtCore/QThread>
#include <QtCore/QUuid>
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

    /// Asks the application that has the library open to show itself and to do what is requested; whether
    /// there is one. May be asked again: what is requested is done once.
    bool raiseOther(WindowRequest request) const;

    /// Listens for such requests from now on; whether that is possible.
    bool listen();

    /// Whether this thread is known to be at work, so that its event loop may take its time: requests are
    /// then answered before it gets to them. Otherwise an application that hangs gives no answer.
    void setIsAtWork(bool isAtWork) { m_isAtWork = isAtWork; }

signals:
    void raiseRequested(const mosslantern::WindowRequest &request);

private:
    void accept();
    void answer(QLocalSocket *socket);

    QString m_name;
    QUuid m_id;         // of this process among those that ask
    QUuid m_lastSender; // of a request
    QThread m_thread;   // of the server
    QLocalServer *m_server;
    std::atomic<bool> m_isAtWork = false;
};

} // namespace mosslantern
