#include "content/json.h"
#include "content/json_text.h"

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

class PrettyPrinter
{
public:
    /// Writes the next token of `rest` and returns what follows it.
    QByteArrayView writeToken(QByteArrayView rest)
    {
        const char c = rest.front();
        switch (c) {
        case '{':
        case '[':
            return open(rest);
        case '}':
        case ']':
            --m_depth;
            newLine();
            m_text += c;
            return rest.sliced(1);
        case ',':
            m_text += c;
            newLine();
            return rest.sliced(1);
        case ':':
            m_text += ": ";
            return rest.sliced(1);
        case '"':
            return string(rest);
        default: {
            const qsizetype length = jsonText::scalarLength(rest);
            m_text += rest.first(length);
            return rest.sliced(length);
        }
        }
    }

    const QByteArray &text() const { return m_text; }

private:
    QByteArrayView open(QByteArrayView rest)
    {
        m_text += rest.front();
        const QByteArrayView inside = jsonText::skippingSpace(rest.sliced(1));
        if (inside.front() == '}' || inside.front() == ']') {
            m_text += inside.front();
            return inside.sliced(1);
        }
        ++m_depth;
        newLine();
        return inside;
    }

    QByteArrayView string(QByteArrayView rest)
    {
        const QByteArrayView literal = rest.first(jsonText::stringLength(rest));
        m_text +=
            literal.contains('\\') ? nlohmann::json::parse(literal.begin(), literal.end()).dump() : literal;
        return rest.sliced(literal.size());
    }

    void newLine()
    {
        m_text += '\n';
        m_text.append(2 * m_depth, ' ');
    }

    QByteArray m_text;
    qsizetype m_depth = 0;
};

} // namespace

Result<QByteArray> prettyJson(const JsonValue &value, qsizetype limit)
{
    PrettyPrinter printer;
    for (QByteArrayView rest = value.source(); !rest.isEmpty(); rest = jsonText::skippingSpace(rest)) {
        rest = printer.writeToken(rest);
        if (printer.text().size() > limit)
            return fail(u"written out, the JSON text would be longer than %1 bytes"_s.arg(limit));
    }
    return printer.text();
}

} // namespace mosslantern
