#pragma once

#include "model/error.h"

#include <QtCore/QFuture>
#include <QtNetwork/QNetworkRequest>

#include <chrono>

namespace mosslantern {

/// A complete answer of a web server.
struct HttpAnswer
{
    /// 0 when what answered did not speak HTTP.
    int status = 0;
    /// What follows the header, as it came.
    QByteArray body;
};

/// What an answer may take; more is a failure.
struct HttpLimits
{
    /// From the start to the last byte of the answer.
    std::chrono::milliseconds time = std::chrono::seconds(300);
    /// Bytes of the answer's body.
    qint64 size = 4 << 20;
};

/// Sends one POST request on a connection of its own, exactly once, and follows no redirect. Certificates
/// are verified. The future gets one result, always: when `owner` is deleted before the answer is complete,
/// the connection is closed and the result is a failure.
QFuture<Result<HttpAnswer>> postOnce(const QNetworkRequest &request, const QByteArray &body,
                                     const HttpLimits &limits, QObject *owner);

} // namespace mosslantern
