#include "content/openai_error.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QString describe(const OpenAIFailure &failure)
{
    if (const auto *passedOn = std::get_if<Error>(&failure))
        return passedOn->message;
    const auto &error = std::get<OpenAIError>(failure);
    switch (error.which) {
    case OpenAIError::Case::apiError:
        return u"apiError(\"%1\")"_s.arg(error.text);
    case OpenAIError::Case::invalidURL:
        return u"invalidURL"_s;
    case OpenAIError::Case::invalidResponse:
        return u"invalidResponse"_s;
    case OpenAIError::Case::decodingError:
        return u"decodingError"_s;
    }
    Q_UNREACHABLE();
}

} // namespace mosslantern
