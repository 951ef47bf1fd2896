#include "content/json_printer.h"

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

std::string literal(const std::string &text)
{
    return nlohmann::json(text).dump();
}

} // namespace

Result<> JsonPrinter::scalar(JsonKind kind, const std::string &text)
{
    startItem();
    m_text += kind == JsonKind::string ? literal(text) : text;
    return withinLimit();
}

Result<> JsonPrinter::begin(JsonKind kind)
{
    startItem();
    m_text += kind == JsonKind::object ? '{' : '[';
    ++m_depth;
    m_isFirst = true;
    return withinLimit();
}

Result<> JsonPrinter::end(JsonKind kind)
{
    --m_depth;
    if (!m_isFirst)
        newLine();
    m_text += kind == JsonKind::object ? '}' : ']';
    m_isFirst = false;
    return withinLimit();
}

Result<> JsonPrinter::key(const std::string &name)
{
    startItem();
    m_text += literal(name) + ": ";
    m_isNamed = true;
    return withinLimit();
}

/// Goes to where a member or an element begins.
void JsonPrinter::startItem()
{
    if (!std::exchange(m_isNamed, false) && m_depth > 0) {
        if (!m_isFirst)
            m_text += ',';
        newLine();
    }
    m_isFirst = false;
}

void JsonPrinter::newLine()
{
    m_text += '\n';
    m_text.append(2 * m_depth, ' ');
}

Result<> JsonPrinter::withinLimit() const
{
    return m_text.size() <= m_limit ? Result<>() : fail(u"written out, the JSON text would be too long"_s);
}

} // namespace mosslantern
