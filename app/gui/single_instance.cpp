#include "app/gui/single_instance.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtNetwork/QLocalSocket>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int answerMilliseconds = 1000;

/// The same for every way to a file, which need not exist yet.
QString canonicalPath(const QString &path)
{
    const QFileInfo file(path);
    if (file.exists() || file.isRoot())
        return file.canonicalFilePath();
    return QDir(canonicalPath(file.path())).filePath(file.fileName());
}

/// In the user's own folder for sockets, so that nobody else can take the name.
QString socketName(const LibraryLocation &location)
{
    const QString path = location.storeFile().isEmpty() ? QString() : canonicalPath(location.storeFile());
    const QByteArray hash =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return QDir(folder).filePath(u"mosslantern-"_s + QString::fromLatin1(hash));
}

} // namespace

SingleInstance::SingleInstance(const LibraryLocation &location, QObject *parent)
    : QObject(parent)
    , m_name(socketName(location))
    , m_id(QUuid::createUuid())
    , m_server(new QLocalServer)
{
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    m_server->moveToThread(&m_thread);
    connect(m_server, &QLocalServer::newConnection, m_server, [this] { accept(); });
    connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
}

SingleInstance::~SingleInstance()
{
    if (!m_thread.isRunning())
        delete m_server;
    m_thread.quit();
    m_thread.wait();
}

bool SingleInstance::raiseOther(WindowRequest request) const
{
    QLocalSocket socket;
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(answerMilliseconds))
        return false;
    request.activationToken = qgetenv("XDG_ACTIVATION_TOKEN");
    QDataStream stream(&socket);
    stream << m_id << request;
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(answerMilliseconds))
            return false;
    }
    return socket.waitForReadyRead(answerMilliseconds);
}

bool SingleInstance::listen()
{
    if (!m_thread.isRunning())
        m_thread.start();
    bool isListening = false;
    const auto listen = [&] {
        // Whoever has the store open is the first instance: a socket of this name is left over from a crash.
        if (!m_server->isListening())
            QLocalServer::removeServer(m_name);
        isListening = m_server->isListening() || m_server->listen(m_name);
    };
    QMetaObject::invokeMethod(m_server, listen, Qt::BlockingQueuedConnection);
    return isListening;
}

void SingleInstance::accept()
{
    while (QLocalSocket *const socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, socket, [this, socket] { answer(socket); });
    }
}

void SingleInstance::answer(QLocalSocket *socket)
{
    QDataStream stream(socket);
    stream.startTransaction();
    QUuid sender;
    WindowRequest request;
    stream >> sender >> request;
    if (!stream.commitTransaction())
        return;
    const auto confirm = [socket = QPointer(socket)] {
        if (!socket)
            return;
        socket->write("ok\n");
        socket->flush();
    };
    const bool isAtWork = m_isAtWork;
    if (isAtWork)
        confirm();
    const auto raise = [this, sender, request, isAtWork, confirm] {
        const bool isRepeated = std::exchange(m_lastSender, sender) == sender;
        emit raiseRequested(isRepeated ? WindowRequest{.activationToken = request.activationToken} : request);
        if (!isAtWork)
            QMetaObject::invokeMethod(m_server, confirm);
    };
    QMetaObject::invokeMethod(this, raise);
}

} // namespace mosslantern
