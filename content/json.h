#pragma once

#include "content/json_handler.h"

#include <vector>

namespace mosslantern {

/// A JSON text that readJson() takes. It must outlive this view of it.
class JsonValue
{
public:
    using Kind = JsonKind;

    /// Fails where readJson() does.
    static Result<JsonValue> parse(QByteArrayView utf8);

    /// What stands at the top.
    Kind kind() const { return m_kind; }

    /// The whole text.
    QByteArrayView source() const { return m_source; }

private:
    JsonValue(Kind kind, QByteArrayView source)
        : m_kind(kind)
        , m_source(source)
    {}

    Kind m_kind;
    QByteArrayView m_source;
};

/// The elements of an array of objects and arrays, each as prettyJson() writes it. Fails where readJson()
/// does, and on anything but such an array.
Result<std::vector<QByteArray>> jsonElements(QByteArrayView utf8);

/// `value` written out again with one member or element per line, two spaces of indentation per level, and
/// in strings only the escapes that JSON asks for; order and repeated members stay as they are. Fails when
/// that takes more than `limit` bytes: indentation can make a short text very long.
Result<QByteArray> prettyJson(const JsonValue &value, qsizetype limit = 64 << 20);

} // namespace mosslantern
