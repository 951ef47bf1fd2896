#pragma once

#include "model/error.h"

#include <variant>

namespace mosslantern {

/// A failure that the AI content service itself finds.
struct OpenAIError
{
    /// What failed.
    enum class Case {
        /// A status outside 200 to 299; `text` is the answer's body, or its status code.
        apiError,
        /// The address of the service cannot be formed from its base.
        invalidURL,
        /// The answer was not HTTP, or held no choices.
        invalidResponse,
        /// The cleaned text of the answer was not a JSON array of objects.
        decodingError,
    };

    Case which;
    /// Empty except for apiError.
    QString text = {};
    /// The answer's status; 0 except for apiError.
    int status = 0;

    friend bool operator==(const OpenAIError &, const OpenAIError &) = default;
};

/// The text that the service wrote is no JSON; `error` is the reader's.
struct OpenAIProse
{
    Error error;

    friend bool operator==(const OpenAIProse &, const OpenAIProse &) = default;
};

/// The service's own failure, or that of the connection, the JSON reader or the JSON writer passed on.
using OpenAIFailure = std::variant<OpenAIError, Error, OpenAIProse>;

/// What a console line shows of it: the case with the text it carries, or the passed-on message.
QString describe(const OpenAIFailure &failure);

/// The same as a sentence for people: of a refusal the status and what the service gives as its reason.
QString explain(const OpenAIFailure &failure);

} // namespace mosslantern
