#include "content/json.h"

#include "content/json_printer.h"

#include <optional>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Notes the kind of the outermost value.
class KindReader final : public JsonHandler
{
public:
    JsonKind kind() const { return m_kind.value(); }

    Result<> scalar(JsonKind kind, const std::string &) override { return begin(kind); }
    Result<> begin(JsonKind kind) override
    {
        m_kind = m_kind.value_or(kind);
        return {};
    }
    Result<> end(JsonKind) override { return {}; }
    Result<> key(const std::string &) override { return {}; }

private:
    std::optional<JsonKind> m_kind;
};

/// Writes each element of the array at the top out by itself.
class ElementReader final : public JsonHandler
{
public:
    std::vector<QByteArray> elements;

    Result<> scalar(JsonKind kind, const std::string &text) override
    {
        return m_printer ? m_printer->scalar(kind, text) : unexpectedValue();
    }
    Result<> begin(JsonKind kind) override
    {
        if (++m_depth == 1)
            return kind == JsonKind::array ? Result<>() : unexpectedValue();
        if (m_depth == 2)
            m_printer.emplace(mostBytes);
        return m_printer->begin(kind);
    }
    Result<> end(JsonKind kind) override
    {
        --m_depth;
        const Result<> ended = m_printer ? m_printer->end(kind) : Result<>();
        if (m_depth == 1) {
            elements.push_back(m_printer->text());
            m_printer.reset();
        }
        return ended;
    }
    Result<> key(const std::string &name) override { return m_printer->key(name); }

private:
    static constexpr qsizetype mostBytes = 64 << 20;

    static Result<> unexpectedValue() { return fail(u"this is no array of documents"_s); }

    std::optional<JsonPrinter> m_printer; // within an element
    int m_depth = 0;
};

} // namespace

Result<std::vector<QByteArray>> jsonElements(QByteArrayView utf8)
{
    ElementReader reader;
    if (const Result<> read = readJson(utf8, reader); !read)
        return std::unexpected(read.error());
    return std::move(reader.elements);
}

Result<JsonValue> JsonValue::parse(QByteArrayView utf8)
{
    KindReader reader;
    if (const Result<> read = readJson(utf8, reader); !read)
        return std::unexpected(read.error());
    return JsonValue(reader.kind(), utf8);
}

Result<QByteArray> prettyJson(const JsonValue &value, qsizetype limit)
{
    JsonPrinter printer(limit);
    if (const Result<> printed = readJson(value.source(), printer); !printed)
        return std::unexpected(printed.error());
    return printer.text();
}

} // namespace mosslantern
