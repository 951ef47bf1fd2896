#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>
#include <QtNetwork/QTcpSocket>

#include <cctype>
#include <functional>
#include <memory>

namespace mosslantern {

/// What a web server sends; `headers` are whole lines.
inline QByteArray httpAnswer(const QByteArray &body, const QByteArray &status = "200 OK",
                             const QByteArray &headers = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
           headers + "\r\n" + body;
}

/// What the AI service sends when `content` is what the model has written.
inline QByteArray chatAnswer(const QByteArray &content)
{
    const QJsonObject message{{QStringLiteral("content"), QString::fromUtf8(content)}};
    const QJsonArray choices{QJsonObject{{QStringLiteral("message"), message}}};
    return httpAnswer(QJsonDocument(QJsonObject{{QStringLiteral("choices"), choices}}).toJson());
}

/// A web server on this machine that keeps each whole request and answers it as the test says.
class TestServer
{
public:
    using Answer = std::function<void(QTcpSocket *)>;

    explicit TestServer(Answer answer, const QSslConfiguration *tls = nullptr)
        : m_answer(std::move(answer))
        , m_server(tls ? std::make_unique<QSslServer>() : std::make_unique<QTcpServer>())
    {
        if (tls)
            static_cast<QSslServer *>(m_server.get())->setSslConfiguration(*tls);
        QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(),
                         [this] { accept(); });
        m_server->listen(QHostAddress::LocalHost);
    }

    quint16 port() const { return m_server->serverPort(); }
    /// Where the AI service is, if this server is it.
    QString serviceUrl() const { return QStringLiteral("http://127.0.0.1:%1/v1").arg(port()); }
    const QByteArrayList &requests() const { return m_requests; }

    static Answer always(const QByteArray &bytes)
    {
        return [bytes](QTcpSocket *socket) {
            socket->write(bytes);
            socket->disconnectFromHost();
        };
    }

private:
    /// Writes the names of headers as usual: later releases of Qt send them in lower case.
    static void capitalizeNames(QByteArray &request, qsizetype end)
    {
        for (qsizetype line = request.indexOf("\r\n") + 2; line > 1 && line < end;
             line = request.indexOf("\r\n", line) + 2) {
            for (qsizetype i = line; i < end && request[i] != ':' && request[i] != '\r'; ++i) {
                if (i == line || request[i - 1] == '-')
                    request[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(request[i])));
            }
        }
    }

    void accept()
    {
        QTcpSocket *const socket = m_server->nextPendingConnection();
        const auto received = std::make_shared<QByteArray>();
        const auto read = [this, socket, received] {
            *received += socket->readAll();
            const qsizetype header = received->indexOf("\r\n\r\n") + 4;
            capitalizeNames(*received, header);
            const qsizetype length = received->indexOf("Content-Length: ") + 16;
            const qsizetype body =
                received->mid(length, received->indexOf('\r', length) - length).toLongLong();
            if (header > 4 && received->size() == header + body) {
                m_requests += *received;
                m_answer(socket);
            }
        };
        QObject::connect(socket, &QTcpSocket::readyRead, m_server.get(), read);
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (socket->bytesAvailable() > 0)
            read();
    }

    Answer m_answer;
    std::unique_ptr<QTcpServer> m_server;
    QByteArrayList m_requests;
};

/// A certificate for 127.0.0.1 that nobody has signed, with its key, made by the program openssl.
inline QSslConfiguration makeSelfSignedTls()
{
    const QTemporaryDir folder;
    const QString keyFile = folder.filePath(QStringLiteral("key.pem"));
    const QString certificateFile = folder.filePath(QStringLiteral("certificate.pem"));
    QProcess openssl;
    openssl.start(
        QStringLiteral("openssl"),
        QStringLiteral("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj "
                       "/CN=test -addext subjectAltName=IP:127.0.0.1 -keyout %1 -out %2")
            .arg(keyFile, certificateFile)
            .split(QLatin1Char(' ')));
    openssl.waitForFinished();
    const auto contents = [](const QString &path) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    };
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setLocalCertificate(QSslCertificate(contents(certificateFile)));
    tls.setPrivateKey(QSslKey(contents(keyFile), QSsl::Ec));
    return tls;
}

} // namespace mosslantern
