#pragma once

#include "content/json_handler.h"

#include <functional>
#include <optional>
#include <span>

namespace mosslantern {

/// What a place in a document must hold.
struct JsonShape
{
    /// A member's name in its object; elements and the document have names of their own.
    QLatin1StringView name;
    JsonKind kind;
    /// Whether a member may be missing or null.
    bool isOptional = false;
    /// The members of an object that are read, at most 32, or the shape of an array's elements.
    std::span<const JsonShape> parts = {};
};

/// Reads a JSON text of the shape `document`. Calls `found` for every value that the shape names, in the
/// order of the text: for a container when it begins, for a string with its characters, for null without.
/// Members without a shape are skipped; a repeated member is found again. The error says where and what is
/// wrong; what was found before it is then of no use.
Result<> decodeJson(QByteArrayView utf8, const JsonShape &document,
                    const std::function<void(const JsonShape &place, std::optional<QString> text)> &found);

} // namespace mosslantern
