#include "content/http_exchange.h"

#include <QtCore/QPromise>
#include <QtCore/QTimer>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QSslSocket>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// How much the connection takes in before it is read: Qt's own HTTP reads on as long as something comes, in
/// a thread of its own that nothing bounds.
constexpr qint64 readAhead = 256 << 10;

bool isSecure(const QUrl &url)
{
    return url.scheme() == "https"_L1;
}

quint16 portOf(const QUrl &url)
{
    return static_cast<quint16>(url.port(isSecure(url) ? 443 : 80));
}

/// The proxy of the system through which a connection to `url` is made.
QNetworkProxy proxyFor(const QUrl &url)
{
    if (!isSecure(url))
        return QNetworkProxy::NoProxy;
    for (const QNetworkProxy &proxy : QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url))) {
        if (proxy.type() == QNetworkProxy::NoProxy ||
            proxy.capabilities().testFlag(QNetworkProxy::TunnelingCapability))
            return proxy;
    }
    return QNetworkProxy::NoProxy;
}

QByteArray headOf(const HttpRequest &request)
{
    const QUrl &url = request.url;
    QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
    if (path.isEmpty())
        path = "/";
    if (url.hasQuery())
        path += '?' + url.query(QUrl::FullyEncoded).toLatin1();
    const QByteArray host = url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1();
    QByteArray head = request.method + ' ' + path + " HTTP/1.1\r\nHost: " + host + "\r\n";
    for (const auto &[name, value] : request.headers)
        head += name + ": " + value + "\r\n";
    if (!request.body.isEmpty())
        head += "Content-Length: " + QByteArray::number(request.body.size()) + "\r\n";
    // Uncompressed, so that the bound on the answer's size bounds the memory.
    head += "Connection: close\r\nUser-Agent: Mosslantern\r\nAccept-Encoding: identity\r\n";
    return head + "\r\n";
}

/// One request under way.
class Exchange : public QObject
{
    Q_OBJECT

public:
    Exchange(const HttpRequest &request, const HttpLimits &limits, QObject *owner)
        : QObject(owner)
        , m_request(request)
        , m_reader(limits.size)
    {
        m_promise.start();
        m_socket.setReadBufferSize(readAhead);
        m_socket.setProxy(proxyFor(request.url));
        connect(&m_socket, isSecure(request.url) ? &QSslSocket::encrypted : &QSslSocket::connected, this,
                [this] { m_socket.write(headOf(m_request) + m_request.body); });
        connect(&m_socket, &QSslSocket::readyRead, this, &Exchange::receive);
        connect(&m_socket, &QSslSocket::errorOccurred, this, &Exchange::conclude);
        QTimer::singleShot(limits.time, this, [this, time = limits.time] {
            finish(fail(u"the service did not answer within %1 seconds"_s.arg(
                std::chrono::duration<double>(time).count())));
        });
        // Where a connection cannot even begin, its error comes at once: nobody waits for the future yet.
        QMetaObject::invokeMethod(this, &Exchange::open, Qt::QueuedConnection);
    }

    ~Exchange() override { finish(fail(u"the request was cancelled"_s)); }

    Q_DISABLE_COPY_MOVE(Exchange)

    QFuture<Result<HttpAnswer>> future() { return m_promise.future(); }

private:
    void open()
    {
        const QUrl &url = m_request.url;
        if (isSecure(url))
            m_socket.connectToHostEncrypted(url.host(), portOf(url));
        else
            m_socket.connectToHost(url.host(), portOf(url));
    }

    void receive()
    {
        if (const Result<> taken = m_reader.add(m_socket.readAll()); !taken)
            finish(std::unexpected(taken.error()));
        else if (m_reader.isComplete())
            finish(m_reader.takeAnswer());
    }

    void conclude(QAbstractSocket::SocketError error)
    {
        // What came before the error may be the whole answer, and more than is read at a time.
        while (m_socket.bytesAvailable() > 0 && !isFinished())
            receive();
        if (isFinished())
            return;
        if (error == QAbstractSocket::SslHandshakeFailedError)
            finish(fail(u"no secure connection could be made: %1"_s.arg(m_socket.errorString())));
        else if (error != QAbstractSocket::RemoteHostClosedError)
            finish(fail(m_socket.errorString()));
        else if (const Result<> ended = m_reader.close(); !ended)
            finish(std::unexpected(ended.error()));
        else
            finish(m_reader.takeAnswer());
    }

    bool isFinished() { return m_promise.future().isFinished(); }

    void finish(Result<HttpAnswer> result)
    {
        if (isFinished())
            return;
        m_promise.addResult(std::move(result));
        m_promise.finish();
        m_socket.disconnect(this);
        m_socket.abort();
        deleteLater();
    }

    HttpRequest m_request;
    HttpReader m_reader;
    QSslSocket m_socket;
    QPromise<Result<HttpAnswer>> m_promise;
};

} // namespace

QFuture<Result<HttpAnswer>> exchangeOnce(const HttpRequest &request, const HttpLimits &limits, QObject *owner)
{
    return (new Exchange(request, limits, owner))->future();
}

} // namespace mosslantern

#include "http_exchange.moc"
