#include "content/openai_error.h"

#include "content/json_decoder.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr JsonShape errorMembers[]{{.name = "message"_L1, .kind = JsonKind::string}};
constexpr JsonShape answerMembers[]{{.name = "error"_L1, .kind = JsonKind::object, .parts = errorMembers}};
constexpr JsonShape answer{.name = "answer"_L1, .kind = JsonKind::object, .parts = answerMembers};

/// The reason in the body of a refusal: its member "error.message", or its first line.
QString reason(const QString &body)
{
    constexpr qsizetype longest = 300;
    QString message;
    const auto found = [&](const JsonShape &, std::optional<QString> text) {
        if (text)
            message = *text;
    };
    if (!decodeJson(body.toUtf8(), answer, found))
        message = body.trimmed().section(u'\n', 0, 0);
    message = message.simplified();
    return message.size() > longest ? message.first(longest) + u'…' : message;
}

} // namespace

QString describe(const OpenAIFailure &failure)
{
    if (const auto *passedOn = std::get_if<Error>(&failure))
        return passedOn->message;
    if (const auto *prose = std::get_if<OpenAIProse>(&failure))
        return prose->error.message;
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

QString explain(const OpenAIFailure &failure)
{
    if (const auto *passedOn = std::get_if<Error>(&failure))
        return passedOn->message;
    if (std::holds_alternative<OpenAIProse>(failure))
        return u"the service answered in prose instead of a list"_s;
    const auto &error = std::get<OpenAIError>(failure);
    switch (error.which) {
    case OpenAIError::Case::apiError: {
        const QString why = reason(error.text);
        return u"the service refused with status %1"_s.arg(error.status) +
               (why.isEmpty() ? why : u": "_s + why);
    }
    case OpenAIError::Case::invalidURL:
        return u"the address of the service is not one that can be used"_s;
    case OpenAIError::Case::invalidResponse:
        return u"the service gave no answer that can be used"_s;
    case OpenAIError::Case::decodingError:
        return u"the service answered with something else than a list of objects"_s;
    }
    Q_UNREACHABLE();
}

} // namespace mosslantern
