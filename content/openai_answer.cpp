#include "content/openai_answer.h"

#include "content/json.h"
#include "content/utf8.h"
#include "model/console.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Kind = JsonValue::Kind;
using Case = OpenAIError::Case;

/// What the variations of one answer may take together, in bytes of UTF-8, and what even a short one counts:
/// an answer of nothing but empty objects must not become millions of texts.
constexpr qsizetype maxVariationsSize = 64 << 20;
constexpr qsizetype leastVariationSize = 1 << 10;

std::unexpected<OpenAIFailure> fail(Case which, const QString &text = {})
{
    return std::unexpected<OpenAIFailure>(OpenAIError{which, text});
}

std::unexpected<OpenAIFailure> passOn(const Error &error)
{
    return std::unexpected<OpenAIFailure>(error);
}

/// A member of `object` that must be there and of one kind.
Result<JsonValue> required(const JsonValue &object, QLatin1StringView name, Kind kind)
{
    if (object.kind() != Kind::object)
        return mosslantern::fail(
            u"expected an object with \"%1\", found %2"_s.arg(name, describe(object.kind())));
    const std::optional<JsonValue> member = object.member(name);
    if (!member)
        return mosslantern::fail(u"\"%1\" is missing"_s.arg(name));
    if (member->kind() != kind)
        return mosslantern::fail(
            u"%1: expected %2, found %3"_s.arg(name, describe(kind), describe(member->kind())));
    return *member;
}

/// What a service says of a refused request, without the key, which it may have trimmed.
QString withoutKey(const QString &text, const QString &apiKey)
{
    // Replacing a few letters that happen to be the key would only garble the message.
    constexpr qsizetype shortestSecret = 8;
    const QString key = apiKey.trimmed();
    return key.size() < shortestSecret ? text : QString(text).replace(key, u"[API key]"_s);
}

QString withoutFences(const QString &content)
{
    QStringView text = content;
    if (text.startsWith("```json"_L1))
        text = text.sliced(7);
    else if (text.startsWith("```"_L1))
        text = text.sliced(3);
    if (text.endsWith("```"_L1))
        text.chop(3);
    return text.trimmed().toString();
}

} // namespace

Result<OpenAIResponse> OpenAIResponse::decode(QByteArrayView body)
{
    const Result<JsonValue> root = JsonValue::parse(body);
    if (!root)
        return std::unexpected(root.error());
    const Result<JsonValue> choices = required(*root, "choices"_L1, Kind::array);
    if (!choices)
        return std::unexpected(choices.error());
    OpenAIResponse response;
    for (const JsonChild &choice : choices->children()) {
        const Result<JsonValue> message = required(choice.value, "message"_L1, Kind::object);
        if (!message)
            return std::unexpected(message.error());
        const Result<JsonValue> content = required(*message, "content"_L1, Kind::string);
        if (!content)
            return std::unexpected(content.error());
        response.choices.append(Choice{Message{content->text()}});
    }
    return response;
}

std::expected<QStringList, OpenAIFailure> readVariations(const HttpAnswer &answer, const QString &apiKey)
{
    if (answer.status == 0)
        return fail(Case::invalidResponse);
    if (answer.status < 200 || answer.status > 299) {
        const std::optional<QString> text = decodeUtf8(answer.body);
        if (!text)
            return fail(Case::apiError, u"Status code: %1"_s.arg(answer.status));
        const QString shown = withoutKey(*text, apiKey);
        printLine(u"OpenAI API Error: "_s + shown);
        return fail(Case::apiError, shown);
    }
    const Result<OpenAIResponse> response = OpenAIResponse::decode(answer.body);
    if (!response)
        return passOn(response.error());
    if (response->choices.isEmpty())
        return fail(Case::invalidResponse);
    return readVariationList(response->choices.first().message.content);
}

std::expected<QStringList, OpenAIFailure> readVariationList(const QString &content)
{
    const std::optional<QByteArray> utf8 = encodeUtf8(withoutFences(content));
    if (!utf8)
        return fail(Case::decodingError);
    const Result<JsonValue> list = JsonValue::parse(*utf8);
    if (!list)
        return passOn(list.error());
    if (list->kind() != Kind::array)
        return fail(Case::decodingError);

    QStringList variations;
    qsizetype left = maxVariationsSize;
    for (const JsonChild &element : list->children()) {
        if (element.value.kind() != Kind::object)
            return fail(Case::decodingError);
        const Result<QByteArray> pretty = prettyJson(element.value, left);
        if (!pretty)
            return passOn(pretty.error());
        left -= qMax(pretty->size(), leastVariationSize);
        variations += QString::fromUtf8(*pretty);
    }
    return variations;
}

} // namespace mosslantern
