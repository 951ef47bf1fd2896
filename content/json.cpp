#include "content/json.h"

#include "content/json_check.h"
#include "content/json_text.h"
#include "content/utf8.h"

namespace mosslantern {

using namespace Qt::StringLiterals;
using jsonText::skippingSpace;
using jsonText::valueLength;

namespace {

QChar escapedCharacter(char c)
{
    switch (c) {
    case 'b':
        return u'\b';
    case 'f':
        return u'\f';
    case 'n':
        return u'\n';
    case 'r':
        return u'\r';
    case 't':
        return u'\t';
    default:
        return QLatin1Char(c);
    }
}

} // namespace

Result<JsonValue> JsonValue::parse(QByteArrayView utf8)
{
    if (auto checked = checkJson(utf8, maxDepth); !checked)
        return std::unexpected(checked.error());
    const QByteArrayView value = skippingSpace(utf8);
    return JsonValue(value.first(valueLength(value)));
}

JsonValue::Kind JsonValue::kind() const
{
    switch (m_source.front()) {
    case '{':
        return Kind::object;
    case '[':
        return Kind::array;
    case '"':
        return Kind::string;
    case 't':
    case 'f':
        return Kind::boolean;
    case 'n':
        return Kind::null;
    default:
        return Kind::number;
    }
}

QString JsonValue::text() const
{
    Q_ASSERT(kind() == Kind::string);
    QByteArrayView rest = m_source.sliced(1).chopped(1);
    QString result;
    while (!rest.isEmpty()) {
        const qsizetype backslash = rest.indexOf('\\');
        const QByteArrayView run = backslash < 0 ? rest : rest.first(backslash);
        result += *decodeUtf8(run);
        rest = rest.sliced(run.size());
        if (rest.isEmpty())
            break;
        if (rest[1] == 'u') {
            result += QChar(rest.sliced(2, 4).toUShort(nullptr, 16));
            rest = rest.sliced(6);
        } else {
            result += escapedCharacter(rest[1]);
            rest = rest.sliced(2);
        }
    }
    return result;
}

bool JsonValue::isText(QLatin1StringView expected) const
{
    const QByteArrayView literal = m_source.sliced(1).chopped(1);
    return literal.contains('\\') ? text() == expected : literal == QByteArrayView(expected);
}

std::optional<JsonValue> JsonValue::member(QLatin1StringView name) const
{
    Q_ASSERT(kind() == Kind::object);
    std::optional<JsonValue> found;
    for (const JsonChild &child : children()) {
        if (child.name->isText(name))
            found = child.value;
    }
    return found;
}

JsonChildren JsonValue::children() const
{
    Q_ASSERT(kind() == Kind::object || kind() == Kind::array);
    return JsonChildren(m_source);
}

QLatin1StringView describe(JsonValue::Kind kind)
{
    switch (kind) {
    case JsonValue::Kind::object:
        return "an object"_L1;
    case JsonValue::Kind::array:
        return "an array"_L1;
    case JsonValue::Kind::string:
        return "a string"_L1;
    case JsonValue::Kind::number:
        return "a number"_L1;
    case JsonValue::Kind::boolean:
        return "a boolean"_L1;
    case JsonValue::Kind::null:
        return "null"_L1;
    }
    Q_UNREACHABLE();
}

JsonIterator::JsonIterator(QByteArrayView container)
    : m_rest(container)
    , m_inObject(container.front() == '{')
{
    ++*this;
}

JsonIterator &JsonIterator::operator++()
{
    // In front of a child stands the container's opening bracket or a comma.
    m_rest = skippingSpace(m_rest);
    const bool opening = m_rest.front() == '{' || m_rest.front() == '[';
    const QByteArrayView next = skippingSpace(m_rest.sliced(1));
    if (m_rest.front() == '}' || m_rest.front() == ']' || (opening && next.size() == 1)) {
        m_child.reset();
        return *this;
    }
    m_rest = next;
    std::optional<JsonValue> name;
    if (m_inObject) {
        name = takeValue();
        m_rest = skippingSpace(skippingSpace(m_rest).sliced(1));
    }
    m_child = JsonChild{name, takeValue()};
    return *this;
}

JsonValue JsonIterator::takeValue()
{
    const JsonValue value(m_rest.first(valueLength(m_rest)));
    m_rest = m_rest.sliced(value.source().size());
    return value;
}

} // namespace mosslantern
