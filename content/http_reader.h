#pragma once

#include "model/error.h"

#include <QtCore/QByteArray>

namespace mosslantern {

/// A complete answer of a web server.
struct HttpAnswer
{
    /// 0 when what answered did not speak HTTP.
    int status = 0;
    /// What follows the header, as it came. Of an answer that is no success only the first MiB is read.
    QByteArray body;
    /// Where a redirect leads; empty for none.
    QByteArray location = {};
};

/// Reads an answer of HTTP/1.x from the pieces in which it comes. Interim answers are passed over; the body
/// is as long as its header says, in chunks, or whatever comes until the connection is closed. It is never
/// decompressed.
class HttpReader
{
public:
    /// `mostBytes`: of the body of a success.
    explicit HttpReader(qint64 mostBytes)
        : m_mostBytes(mostBytes)
    {}

    /// Takes in what comes next; what follows a complete answer is ignored. Fails when the answer is longer
    /// than allowed, when its header takes more than 64 KiB, and when it is malformed.
    Result<> add(QByteArrayView bytes);

    /// Nothing more will come. Fails when something is missing.
    Result<> close();

    bool isComplete() const { return m_state == State::complete; }

    /// The answer, once it is complete.
    HttpAnswer takeAnswer() { return std::move(m_answer); }

private:
    enum class State { statusLine, header, body, chunkSize, chunk, chunkEnd, trailer, complete };

    Result<> readLine(QByteArrayView line);
    Result<> readStatusLine(QByteArrayView line);
    Result<> readHeaderLine(QByteArrayView line);
    Result<> beginBody();
    Result<> readChunkSize(QByteArrayView line);
    Result<> readBody(QByteArrayView &bytes);

    qint64 m_mostBytes;
    HttpAnswer m_answer;
    State m_state = State::statusLine;
    /// The part of a line that has come.
    QByteArray m_line;
    /// Bytes of lines outside of the body.
    qint64 m_headSize = 0;
    /// Of the body or the chunk; -1 when only the end of the connection ends it.
    qint64 m_left = -1;
    bool m_isChunked = false;
};

} // namespace mosslantern
