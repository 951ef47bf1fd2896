#include "content/json_check.h"

#include <QtCore/QUtf8StringView>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

class JsonChecker
{
public:
    JsonChecker(QByteArrayView text, int maxDepth)
        : m_begin(text.begin())
        , m_at(text.begin())
        , m_end(text.end())
        , m_maxDepth(maxDepth)
    {}

    bool text()
    {
        skipSpace();
        if (!value(0))
            return false;
        skipSpace();
        return m_at == m_end || failed(u"unexpected text after the end of the document"_s);
    }

    Error error() const
    {
        const char *const lineStart =
            std::find(std::reverse_iterator(m_at), std::reverse_iterator(m_begin), '\n').base();
        const auto line = 1 + std::count(m_begin, lineStart, '\n');
        // Bytes that continue a character do not count.
        const auto column = 1 + std::count_if(lineStart, m_at, [](char c) { return (c & 0xC0) != 0x80; });
        return {u"%1 at line %2, column %3"_s.arg(m_problem).arg(line).arg(column)};
    }

private:
    bool failed(const QString &problem)
    {
        m_problem = problem;
        return false;
    }

    bool expected(const QString &what)
    {
        return failed(m_at == m_end ? u"expected %1, found the end of the text"_s.arg(what)
                                    : u"expected %1"_s.arg(what));
    }

    bool at(char c) const { return m_at != m_end && *m_at == c; }

    bool take(char c)
    {
        const bool found = at(c);
        m_at += found;
        return found;
    }

    void skipSpace()
    {
        while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t'))
            ++m_at;
    }

    bool value(int depth)
    {
        if (m_at == m_end)
            return expected(u"a value"_s);
        switch (*m_at) {
        case '{':
            return container(depth, '}');
        case '[':
            return container(depth, ']');
        case '"':
            return string();
        case 't':
            return literal("true");
        case 'f':
            return literal("false");
        case 'n':
            return literal("null");
        default:
            return *m_at == '-' || isDigit(*m_at) ? number() : expected(u"a value"_s);
        }
    }

    bool container(int depth, char close)
    {
        if (depth == m_maxDepth)
            return failed(u"nested more than %1 levels deep"_s.arg(m_maxDepth));
        ++m_at;
        skipSpace();
        if (take(close))
            return true;
        do {
            skipSpace();
            if (close == '}' && !memberName())
                return false;
            if (!value(depth + 1))
                return false;
            skipSpace();
        } while (take(','));
        return take(close) || expected(close == '}' ? u"\",\" or \"}\""_s : u"\",\" or \"]\""_s);
    }

    bool memberName()
    {
        if (!at('"'))
            return expected(u"a member name in double quotes"_s);
        if (!string())
            return false;
        skipSpace();
        if (!take(':'))
            return expected(u"\":\""_s);
        skipSpace();
        return true;
    }

    bool string()
    {
        ++m_at;
        while (m_at != m_end && *m_at != '"') {
            if (static_cast<unsigned char>(*m_at) < 0x20) {
                return failed(*m_at == '\n' || *m_at == '\r' ? u"line break inside a string"_s
                                                             : u"control character inside a string"_s);
            }
            if (*m_at != '\\')
                ++m_at;
            else if (!escape())
                return false;
        }
        return take('"') || expected(u"a closing double quote"_s);
    }

    bool escape()
    {
        const char *const start = m_at++;
        if (!at('u')) {
            if (m_at == m_end || !"\"\\/bfnrt"_L1.contains(QLatin1Char(*m_at)))
                return expected(u"one of the characters \" \\ / b f n r t u after a backslash"_s);
            ++m_at;
            return true;
        }
        const int unit = codeUnit();
        if (unit < 0)
            return expected(u"four hexadecimal digits after \\u"_s);
        if (!QChar::isSurrogate(static_cast<char32_t>(unit)))
            return true;
        if (QChar::isHighSurrogate(static_cast<char32_t>(unit)) && take('\\') && at('u') &&
            QChar::isLowSurrogate(static_cast<char32_t>(codeUnit())))
            return true;
        m_at = start;
        return failed(u"half of a surrogate pair"_s);
    }

    /// Takes "u" and four digits; negative when they are not there.
    int codeUnit()
    {
        ++m_at;
        if (m_end - m_at < 4 || !std::all_of(m_at, m_at + 4, [](char c) {
                return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
            }))
            return -1;
        m_at += 4;
        return QByteArrayView(m_at - 4, 4).toInt(nullptr, 16);
    }

    bool literal(QByteArrayView word)
    {
        if (!QByteArrayView(m_at, m_end).startsWith(word))
            return expected(u"a value"_s);
        m_at += word.size();
        return true;
    }

    bool number()
    {
        take('-');
        if (!take('0') && !digits())
            return false;
        if (take('.') && !digits())
            return false;
        if (take('e') || take('E')) {
            if (!take('+'))
                take('-');
            return digits();
        }
        return true;
    }

    bool digits()
    {
        const char *const start = m_at;
        while (m_at != m_end && isDigit(*m_at))
            ++m_at;
        return m_at != start || expected(u"a digit"_s);
    }

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    int m_maxDepth;
    QString m_problem;
};

} // namespace

Result<> checkJson(QByteArrayView utf8, int maxDepth)
{
    if (!QUtf8StringView(utf8).isValidUtf8())
        return fail(u"the text is not valid UTF-8"_s);
    JsonChecker checker(utf8, maxDepth);
    if (!checker.text())
        return std::unexpected(checker.error());
    return {};
}

} // namespace mosslantern
