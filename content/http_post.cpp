#include "content/http_post.h"

#include <QtCore/QPromise>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// A request body that is read once. Qt sends a request again, up to three times, when the connection is
/// closed before an answer, and a service would do, and charge for, the work again. A body that cannot go
/// back to its start prevents it.
class SingleUseBody : public QIODevice
{
public:
    explicit SingleUseBody(const QByteArray &bytes)
        : m_bytes(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    qint64 size() const override { return m_bytes.size(); }
    bool reset() override { return m_taken == 0; }

protected:
    qint64 readData(char *target, qint64 length) override
    {
        const qint64 count = qMin(length, m_bytes.size() - m_taken);
        std::copy_n(m_bytes.begin() + m_taken, count, target);
        m_taken += count;
        return count == 0 ? -1 : count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_taken = 0;
};

/// Whether a reply that ended with an error holds a complete answer all the same: the error may only stand
/// for its status, or for the refused repetition, which Qt also tries after a redirect and when the
/// connection is closed right behind the answer.
bool isComplete(const QNetworkReply &reply, qsizetype received)
{
    const QNetworkReply::NetworkError error = reply.error();
    if (error != QNetworkReply::ContentReSendError)
        return error == QNetworkReply::ProxyAuthenticationRequiredError ||
               (error > QNetworkReply::UnknownProxyError && error != QNetworkReply::ProtocolFailure);
    const QVariant length = reply.header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid())
        return received == length.toLongLong();
    return reply.rawHeader("Transfer-Encoding").isEmpty() ||
           reply.attribute(QNetworkRequest::RedirectionTargetAttribute).isValid();
}

/// One request under way.
class Exchange : public QObject
{
    Q_OBJECT

public:
    Exchange(const QNetworkRequest &request, const QByteArray &body, const HttpLimits &limits, QObject *owner)
        : QObject(owner)
        , m_limits(limits)
        , m_reply(send(request, body))
    {
        m_promise.start();
        connect(m_reply, &QNetworkReply::readyRead, this, &Exchange::receive);
        connect(m_reply, &QNetworkReply::finished, this, &Exchange::conclude);
        QTimer::singleShot(limits.time, this, [this] {
            finish(fail(u"the service did not answer within %1 seconds"_s.arg(
                std::chrono::duration<double>(m_limits.time).count())));
        });
    }

    ~Exchange() override { finish(fail(u"the request was cancelled"_s)); }

    Q_DISABLE_COPY_MOVE(Exchange)

    QFuture<Result<HttpAnswer>> future() { return m_promise.future(); }

private:
    QNetworkReply *send(const QNetworkRequest &request, const QByteArray &body)
    {
        if (request.url().scheme() == "http"_L1)
            m_network.setProxy(QNetworkProxy::NoProxy);
        auto *device = new SingleUseBody(body);
        QNetworkReply *reply = m_network.post(request, device);
        device->setParent(reply);
        // No bound on what Qt buffers: of a chunked body it would only keep back what has arrived, in the
        // thread that goes on receiving, where nobody counts it.
        return reply;
    }

    void receive()
    {
        m_received += m_reply->readAll();
        if (m_received.size() > m_limits.size)
            finish(fail(u"the answer of the service is longer than %1 bytes"_s.arg(m_limits.size)));
    }

    void conclude()
    {
        receive();
        const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QNetworkReply::NetworkError error = m_reply->error();
        if (error == QNetworkReply::NoError || (status != 0 && isComplete(*m_reply, m_received.size())))
            finish(HttpAnswer{status, std::move(m_received)});
        else if (error == QNetworkReply::ContentReSendError || error == QNetworkReply::RemoteHostClosedError)
            finish(fail(status == 0 ? u"the connection was closed without an answer"_s
                                    : u"the connection was closed in the middle of the answer"_s));
        else
            finish(fail(m_reply->errorString()));
    }

    void finish(Result<HttpAnswer> result)
    {
        if (m_promise.future().isFinished())
            return;
        m_promise.addResult(std::move(result));
        m_promise.finish();
        m_reply->disconnect(this);
        m_reply->abort();
        deleteLater();
    }

    HttpLimits m_limits;
    QNetworkAccessManager m_network;
    QNetworkReply *m_reply;
    QByteArray m_received;
    QPromise<Result<HttpAnswer>> m_promise;
};

} // namespace

QFuture<Result<HttpAnswer>> postOnce(const QNetworkRequest &request, const QByteArray &body,
                                     const HttpLimits &limits, QObject *owner)
{
    return (new Exchange(request, body, limits, owner))->future();
}

} // namespace mosslantern

#include "http_post.moc"
