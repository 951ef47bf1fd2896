#include "content/table/delimited_text.h"

#include <QtCore/QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

constexpr char noSeparator = '\0';

// As Windows-1252 has them at 0x80; the five that it leaves open stay what they are.
constexpr std::array<char16_t, 32> windowsLetters{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

QByteArray fromWindows(QByteArrayView bytes)
{
    QByteArray text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = uchar(byte);
        if (code < 0x80) {
            text += byte;
            continue;
        }
        const char16_t letter = code < 0xA0 ? windowsLetters[code - 0x80] : code;
        if (letter >= 0x800)
            text += char(0xE0 | (letter >> 12));
        text += letter >= 0x800 ? char(0x80 | ((letter >> 6) & 0x3F)) : char(0xC0 | (letter >> 6));
        text += char(0x80 | (letter & 0x3F));
    }
    return text;
}

/// Which of the two forms of UTF-16 a text without a mark is likely to be: in most scripts every other byte
/// of separators and digits is 0.
std::optional<QStringDecoder::Encoding> utf16Without(QByteArrayView bytes)
{
    constexpr qsizetype enough = 4096;
    const QByteArrayView start = bytes.first(std::min(bytes.size(), enough) & ~qsizetype(1));
    std::array<qsizetype, 2> zeros{};
    for (qsizetype i = 0; i < start.size(); ++i)
        zeros[size_t(i & 1)] += start[i] == '\0';
    const auto isFew = [&](size_t half) { return zeros[half] * 100 < start.size(); };
    const auto isMany = [&](size_t half) { return zeros[half] * 10 > start.size(); };
    if (bytes.size() % 2 == 0 && isFew(0) && isMany(1))
        return QStringDecoder::Utf16LE;
    if (bytes.size() % 2 == 0 && isFew(1) && isMany(0))
        return QStringDecoder::Utf16BE;
    return {};
}

/// The text in UTF-8; `kept` holds it when it is not in `bytes`.
QByteArrayView inUtf8(QByteArrayView bytes, QByteArray &kept)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return bytes.sliced(3);
    auto encoding = utf16Without(bytes);
    if (bytes.startsWith("\xFF\xFE"))
        encoding = QStringDecoder::Utf16LE;
    else if (bytes.startsWith("\xFE\xFF"))
        encoding = QStringDecoder::Utf16BE;
    if (encoding)
        kept = QString(QStringDecoder(*encoding)(bytes)).toUtf8();
    else if (!bytes.isValidUtf8())
        kept = fromWindows(bytes);
    else
        return bytes;
    return kept;
}

/// Takes a text apart, cell by cell.
class CellReader
{
public:
    CellReader(QByteArrayView text, char separator)
        : m_at(text.begin())
        , m_end(text.end())
        , m_separator(separator)
    {}

    bool isAtEnd() const { return m_at == m_end; }
    /// Whether the cell that was read last ends its row.
    bool isRowEnd() const { return m_isRowEnd; }
    bool isQuoteOpen() const { return m_isQuoteOpen; }

    /// The next cell. The text lasts until the next call.
    std::string_view next()
    {
        m_isRowEnd = true;
        if (m_at != m_end && *m_at == '"')
            return quoted();
        const char *const start = m_at;
        m_at = std::find_if(m_at, m_end, [this](char c) { return isEnd(c); });
        const std::string_view cell(start, size_t(m_at - start));
        takeEnd();
        return cell;
    }

private:
    bool isEnd(char c) const
    {
        return c == '\n' || c == '\r' || (c == m_separator && m_separator != noSeparator);
    }

    std::string_view quoted()
    {
        m_cell.clear();
        ++m_at;
        while (true) {
            const char *const quote = std::find(m_at, m_end, '"');
            m_cell.append(m_at, quote);
            if (quote == m_end) {
                m_isQuoteOpen = true;
                m_at = m_end;
                return {};
            }
            m_at = quote + 1;
            if (m_at == m_end || *m_at != '"')
                break;
            m_cell += '"';
            ++m_at;
        }
        const char *const rest = m_at;
        m_at = std::find_if(m_at, m_end, [this](char c) { return isEnd(c); });
        m_cell.append(rest, m_at);
        takeEnd();
        if (m_cell.find('\r') != std::string::npos)
            unifyLineBreaks();
        return m_cell;
    }

    void unifyLineBreaks()
    {
        size_t length = 0;
        for (size_t i = 0; i < m_cell.size(); ++i) {
            const bool isReturn = m_cell[i] == '\r';
            if (isReturn && i + 1 < m_cell.size() && m_cell[i + 1] == '\n')
                continue;
            m_cell[length++] = isReturn ? '\n' : m_cell[i];
        }
        m_cell.resize(length);
    }

    void takeEnd()
    {
        if (m_at == m_end)
            return;
        m_isRowEnd = *m_at != m_separator;
        if (*m_at++ == '\r' && m_isRowEnd && m_at != m_end && *m_at == '\n')
            ++m_at;
    }

    const char *m_at;
    const char *m_end;
    char m_separator;
    std::string m_cell;
    bool m_isRowEnd = false;
    bool m_isQuoteOpen = false;
};

/// The separator that makes the first row several cells and as many of most of the next rows.
char separatorOf(QByteArrayView text)
{
    constexpr int enough = 50;
    char best = noSeparator;
    std::pair<int, int> bestScore; // rows like the first, cells of the first
    for (const char separator : {'\t', ';', ',', '|'}) {
        CellReader cells(text, separator);
        int first = 0, alike = 0;
        for (int row = 0; row < enough && !cells.isAtEnd(); ++row) {
            int count = 0;
            do {
                cells.next();
                ++count;
            } while (!cells.isRowEnd());
            if (first == 0 && count == 1 && row > 0)
                break;
            first = row == 0 ? count : first;
            alike += count == first;
        }
        if (first > 1 && std::pair(alike, first) > bestScore) {
            bestScore = {alike, first};
            best = separator;
        }
    }
    return best;
}

} // namespace

Result<Table> readDelimitedText(QByteArrayView bytes)
{
    if (bytes.startsWith("PK\x03\x04"))
        return fail(u"This is a workbook or another archive: save its sheet as CSV or TSV."_s);
    QByteArray kept;
    QByteArrayView text = inUtf8(bytes, kept);
    if (text.contains('\0'))
        return fail(u"This is no text: save the sheet as CSV or TSV."_s);
    char separator = noSeparator;
    constexpr QByteArrayView told = "sep=";
    if (text.startsWith(told) && text.size() > told.size() + 1 &&
        (text[told.size() + 1] == '\n' || text[told.size() + 1] == '\r')) {
        separator = text[told.size()];
        CellReader line(text, noSeparator);
        text = text.sliced(qsizetype(line.next().size()));
        text = text.sliced(text.startsWith("\r\n") ? 2 : 1);
    } else {
        separator = separatorOf(text);
    }

    TableBuilder table;
    CellReader cells(text, separator);
    while (!cells.isAtEnd()) {
        size_t column = 0;
        do {
            const std::string_view cell = cells.next();
            if (cells.isQuoteOpen())
                return fail(u"The quote that begins in row %1 has no end."_s.arg(table.row() + 1));
            if (!table.add(column++, cell))
                return fail(tableTooLarge());
        } while (!cells.isRowEnd());
        if (!table.endRow())
            return fail(tableTooLarge());
    }
    return std::move(table).finish();
}

} // namespace mosslantern
