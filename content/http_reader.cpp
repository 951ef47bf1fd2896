#include "content/http_reader.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostHeadBytes = 64 << 10;
constexpr qint64 mostErrorBytes = 1 << 20;
/// Of a line between two chunks.
constexpr qsizetype mostChunkLineBytes = 1 << 10;

std::unexpected<Error> malformed()
{
    return fail(u"the answer of the service is malformed"_s);
}

/// A number of digits only, or -1.
qint64 wholeNumber(QByteArrayView digits, int base)
{
    const auto isDigit = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
    bool isNumber = !digits.isEmpty() && std::ranges::all_of(digits, isDigit);
    const qint64 value = isNumber ? digits.toByteArray().toLongLong(&isNumber, base) : 0;
    return isNumber ? value : -1;
}

/// Takes away the beginning of a character of UTF-8 that has been cut in two at the end of `text`.
void dropPartOfCharacter(QByteArray &text)
{
    qsizetype size = text.size();
    while (size > 0 && text.size() - size < 3 && (text[size - 1] & 0xC0) == 0x80)
        --size;
    if (size > 0 && (text[size - 1] & 0xC0) == 0xC0)
        text.truncate(size - 1);
}

bool isSuccess(int status)
{
    return status >= 200 && status <= 299;
}

} // namespace

Result<> HttpReader::add(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && m_state != State::complete) {
        if (m_state == State::body || m_state == State::chunk) {
            if (const Result<> read = readBody(bytes); !read)
                return read;
            continue;
        }
        const bool isBetweenChunks = m_state == State::chunkSize || m_state == State::chunkEnd;
        const qsizetype most = isBetweenChunks ? mostChunkLineBytes : mostHeadBytes - m_headSize;
        const qsizetype end = bytes.indexOf('\n');
        const QByteArrayView part = bytes.first(end < 0 ? bytes.size() : end + 1);
        if (m_line.size() + part.size() > most)
            return m_answer.status == 0 && m_state == State::statusLine ? readStatusLine({}) : malformed();
        m_line += part;
        bytes = bytes.sliced(part.size());
        if (end < 0)
            continue;
        if (!isBetweenChunks)
            m_headSize += m_line.size();
        const QByteArray line = std::exchange(m_line, {});
        const qsizetype length = line.size() - (line.endsWith("\r\n") ? 2 : 1);
        if (const Result<> read = readLine(QByteArrayView(line).first(length)); !read)
            return read;
    }
    return {};
}

Result<> HttpReader::close()
{
    if (m_state == State::complete)
        return {};
    if (m_state == State::body && m_left < 0) {
        m_state = State::complete;
        return {};
    }
    if (m_state == State::statusLine && !m_line.isEmpty())
        return readStatusLine(m_line);
    return fail(m_answer.status == 0 ? u"the connection was closed without an answer"_s
                                     : u"the connection was closed in the middle of the answer"_s);
}

Result<> HttpReader::readLine(QByteArrayView line)
{
    switch (m_state) {
    case State::statusLine:
        return readStatusLine(line);
    case State::header:
        return line.isEmpty() ? beginBody() : readHeaderLine(line);
    case State::chunkSize:
        return readChunkSize(line);
    case State::chunkEnd:
        m_state = State::chunkSize;
        return line.isEmpty() ? Result<>() : malformed();
    case State::trailer:
        if (line.isEmpty())
            m_state = State::complete;
        return {};
    case State::body:
    case State::chunk:
    case State::complete:
        break;
    }
    Q_UNREACHABLE();
}

Result<> HttpReader::readStatusLine(QByteArrayView line)
{
    // "HTTP/1.1 200 OK"
    constexpr qsizetype at = 9;
    const bool isHttp = line.startsWith("HTTP/1.") && line.size() >= at + 3 && line[at - 1] == ' ' &&
                        (line.size() == at + 3 || line[at + 3] == ' ');
    const qint64 status = isHttp ? wholeNumber(line.sliced(at, 3), 10) : -1;
    m_answer.status = status < 100 ? 0 : static_cast<int>(status);
    m_state = m_answer.status == 0 ? State::complete : State::header;
    return {};
}

Result<> HttpReader::readHeaderLine(QByteArrayView line)
{
    const qsizetype colon = line.indexOf(':');
    if (colon <= 0)
        return malformed();
    const QByteArray name = line.first(colon).toByteArray().toLower();
    const QByteArray value = line.sliced(colon + 1).toByteArray().trimmed();
    if (name == "transfer-encoding") {
        m_isChunked = value.toLower() == "chunked";
        if (!m_isChunked)
            return fail(u"the service answered in an encoding that was not asked for"_s);
    } else if (name == "content-length") {
        const qint64 length = wholeNumber(value, 10);
        if (length < 0 || (m_left >= 0 && length != m_left))
            return malformed();
        m_left = length;
    } else if (name == "location") {
        m_answer.location = value;
    }
    return {};
}

Result<> HttpReader::beginBody()
{
    constexpr int switchingProtocols = 101;
    if (m_answer.status < 200 && m_answer.status != switchingProtocols) {
        m_answer = {};
        m_left = -1;
        m_isChunked = false;
        m_state = State::statusLine;
        return {};
    }
    constexpr int bodiless[]{switchingProtocols, 204, 304};
    if (std::ranges::find(bodiless, m_answer.status) != std::end(bodiless) || (!m_isChunked && m_left == 0))
        m_state = State::complete;
    else
        m_state = m_isChunked ? State::chunkSize : State::body;
    return {};
}

Result<> HttpReader::readChunkSize(QByteArrayView line)
{
    const qsizetype end = line.indexOf(';');
    m_left = wholeNumber((end < 0 ? line : line.first(end)).trimmed(), 16);
    if (m_left < 0)
        return malformed();
    m_state = m_left == 0 ? State::trailer : State::chunk;
    return {};
}

Result<> HttpReader::readBody(QByteArrayView &bytes)
{
    const qint64 most = isSuccess(m_answer.status) ? m_mostBytes : mostErrorBytes;
    const qint64 wanted = m_left < 0 ? bytes.size() : std::min<qint64>(m_left, bytes.size());
    const qint64 taken = std::min(wanted, most - m_answer.body.size());
    m_answer.body += bytes.first(taken);
    bytes = bytes.sliced(taken);
    if (taken < wanted) {
        if (isSuccess(m_answer.status))
            return fail(u"the answer of the service is longer than %1 bytes"_s.arg(most));
        dropPartOfCharacter(m_answer.body);
        m_state = State::complete;
        return {};
    }
    if (m_left > 0)
        m_left -= taken;
    if (m_left == 0)
        m_state = m_isChunked ? State::chunkEnd : State::complete;
    return {};
}

} // namespace mosslantern
