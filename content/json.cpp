#include "content/json.h"

#include "content/json_printer.h"

#include <optional>

namespace mosslantern {

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

} // namespace

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
