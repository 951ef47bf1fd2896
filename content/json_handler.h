#pragma once

#include "model/error.h"

#include <QtCore/QByteArrayView>

#include <string>

namespace mosslantern {

/// The kinds of JSON values.
enum class JsonKind { object, array, string, number, boolean, null };

/// "an object", "a number", … for messages.
QLatin1StringView describe(JsonKind kind);

/// Receives the pieces of a JSON text in their order, so that no tree of it is needed. A failure ends the
/// reading.
class JsonHandler
{
public:
    virtual ~JsonHandler() = default;

    /// A string's characters in UTF-8, or a number or word as it is to be written.
    virtual Result<> scalar(JsonKind kind, const std::string &text) = 0;

    /// An object or array begins.
    virtual Result<> begin(JsonKind kind) = 0;

    /// The object or array that began last ends.
    virtual Result<> end(JsonKind kind) = 0;

    /// The name of the object's member that comes next.
    virtual Result<> key(const std::string &name) = 0;
};

/// Texts nested deeper than this are refused.
inline constexpr int maxJsonDepth = 512;

/// Gives `handler` the pieces of `utf8`, which must be strict JSON (RFC 8259, any value at the top) without a
/// byte order mark. Integers of 64 bits are exact, other numbers keep their digits; numbers that a double
/// cannot hold, such as 1e400, are refused, and -0 becomes 0.
Result<> readJson(QByteArrayView utf8, JsonHandler &handler);

} // namespace mosslantern
