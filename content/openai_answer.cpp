#include "content/openai_answer.h"

#include "content/json_decoder.h"
#include "content/json_printer.h"
#include "content/secret.h"
#include "content/utf8.h"
#include "model/console.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

using Case = OpenAIError::Case;

/// What the variations of one answer may take together, in bytes of UTF-8, and what even a short one counts:
/// an answer of nothing but empty objects must not become millions of texts.
constexpr qsizetype maxVariationsSize = 64 << 20;
constexpr qsizetype leastVariationSize = 1 << 10;

std::unexpected<OpenAIFailure> fail(Case which, const QString &text = {}, int status = 0)
{
    return std::unexpected<OpenAIFailure>(OpenAIError{which, text, status});
}

std::unexpected<OpenAIFailure> passOn(const Error &error)
{
    return std::unexpected<OpenAIFailure>(error);
}

/// What a service says of a refused request, as far as anybody reads it: without the key and what a terminal
/// would obey.
QString shownRefusal(const QString &body, const QString &apiKey)
{
    constexpr qsizetype longest = 64 << 10;
    const QString text = terminalText(withoutSecret(body, apiKey));
    return text.size() > longest ? text.first(longest) + u'…' : text;
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

constexpr JsonShape messageMembers[]{{.name = "content"_L1, .kind = JsonKind::string}};
constexpr JsonShape choiceMembers[]{
    {.name = "message"_L1, .kind = JsonKind::object, .parts = messageMembers}};
constexpr JsonShape choice[]{{.name = "choice"_L1, .kind = JsonKind::object, .parts = choiceMembers}};
constexpr JsonShape responseMembers[]{{.name = "choices"_L1, .kind = JsonKind::array, .parts = choice}};
constexpr JsonShape responseShape{.name = "response"_L1, .kind = JsonKind::object, .parts = responseMembers};

/// Prints each object of a list on its own, as it is read.
class VariationLister final : public JsonHandler
{
public:
    /// Whether what was read is a list of objects.
    bool isList() const { return m_isList; }
    const QStringList &variations() const { return m_variations; }

    Result<> scalar(JsonKind kind, const std::string &text) override
    {
        m_isList = m_isList && m_depth > 1;
        return m_isList ? m_printer.scalar(kind, text) : Result<>();
    }

    Result<> begin(JsonKind kind) override
    {
        const int depth = m_depth++;
        if (depth < 2)
            m_isList = m_isList && kind == (depth == 0 ? JsonKind::array : JsonKind::object);
        return m_isList && depth > 0 ? m_printer.begin(kind) : Result<>();
    }

    Result<> end(JsonKind kind) override
    {
        const int depth = --m_depth;
        if (!m_isList || depth == 0)
            return {};
        const Result<> printed = m_printer.end(kind);
        if (printed && depth == 1) {
            const QByteArray &text = m_printer.text();
            m_variations += QString::fromUtf8(text);
            m_sizeLeft -= qMax(text.size(), leastVariationSize);
            m_printer = JsonPrinter(m_sizeLeft);
        }
        return printed;
    }

    Result<> key(const std::string &name) override { return m_isList ? m_printer.key(name) : Result<>(); }

private:
    QStringList m_variations;
    qsizetype m_sizeLeft = maxVariationsSize;
    JsonPrinter m_printer{m_sizeLeft};
    int m_depth = 0;
    bool m_isList = true;
};

} // namespace

Result<OpenAIResponse> OpenAIResponse::decode(QByteArrayView body)
{
    OpenAIResponse response;
    const auto found = [&choices = response.choices](const JsonShape &place, std::optional<QString> text) {
        if (place.name == "choices"_L1)
            choices.clear();
        else if (place.name == "choice"_L1)
            choices.emplaceBack();
        else if (place.name == "content"_L1)
            choices.last().message.content = *std::move(text);
    };
    if (const Result<> decoded = decodeJson(body, responseShape, found); !decoded)
        return std::unexpected(decoded.error());
    return response;
}

std::expected<QStringList, OpenAIFailure> readVariations(const HttpAnswer &answer, const QString &apiKey)
{
    if (answer.status == 0)
        return fail(Case::invalidResponse);
    if (answer.status < 200 || answer.status > 299) {
        const std::optional<QString> text = decodeUtf8(answer.body);
        if (!text)
            return fail(Case::apiError, u"Status code: %1"_s.arg(answer.status), answer.status);
        const QString shown = shownRefusal(*text, apiKey);
        printLine(u"OpenAI API Error: "_s + shown);
        return fail(Case::apiError, shown, answer.status);
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
    VariationLister lister;
    if (const Result<> read = readJson(*utf8, lister); !read)
        return std::unexpected<OpenAIFailure>(OpenAIProse{read.error()});
    if (!lister.isList())
        return fail(Case::decodingError);
    return lister.variations();
}

} // namespace mosslantern
