#pragma once

#include "content/http_reader.h"

#include <QtCore/QFuture>
#include <QtCore/QUrl>

#include <chrono>
#include <utility>

namespace mosslantern {

/// What is asked of a web server.
struct HttpRequest
{
    QByteArray method;
    /// "http" or "https".
    QUrl url;
    /// Names and values; Host, Connection, User-Agent, Accept-Encoding and Content-Length come by themselves.
    QList<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
};

/// What an exchange may take; more is a failure.
struct HttpLimits
{
    /// From the start to the last byte of the answer.
    std::chrono::milliseconds time = std::chrono::seconds(300);
    /// Bytes of the answer's body.
    qint64 size = 4 << 20;
};

/// Sends one request on a connection of its own, exactly once, and follows no redirect. Certificates are
/// verified. However fast an answer comes, no more of it is in memory than the limits allow and 256 KiB. The
/// future gets one result, always: when `owner` is deleted before the answer is complete, the connection is
/// closed and the result is a failure.
QFuture<Result<HttpAnswer>> exchangeOnce(const HttpRequest &request, const HttpLimits &limits,
                                         QObject *owner);

} // namespace mosslantern
