#include "content/openai_request.h"

#include "content/utf8.h"

#include <QtNetwork/QHostAddress>

#include <nlohmann/json.hpp>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isThisMachine(const QString &host)
{
    return host == "localhost"_L1 || QHostAddress(host).isLoopback();
}

} // namespace

QUrl chatCompletionsUrl(const QString &baseUrl)
{
    QUrl url(baseUrl, QUrl::StrictMode);
    const bool secret =
        url.scheme() == "https"_L1 || (url.scheme() == "http"_L1 && isThisMachine(url.host()));
    if (!secret || url.host().isEmpty() || !url.userInfo().isEmpty() || url.hasQuery() || url.hasFragment())
        return {};
    QString path = url.path(QUrl::FullyEncoded);
    while (path.endsWith(u'/'))
        path.chop(1);
    url.setPath(path + u"/chat/completions"_s, QUrl::StrictMode);
    return url;
}

Result<QByteArray> authorizationHeader(const QString &apiKey)
{
    const std::optional<QByteArray> key = encodeUtf8(apiKey);
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    if (!key || std::any_of(apiKey.begin(), apiKey.end(), isControl))
        return fail(u"the API key holds a line break or another character that cannot be sent"_s);
    return "Bearer " + *key;
}

QString variationsPrompt(const QString &prompt, const QString &exampleJSON, qint64 count)
{
    return uR"(You are a creative assistant helping to generate text for slideshows.
The user wants to create %1 variations of a slideshow based on a specific topic or goal.

Here is the example JSON structure that MUST be followed exactly for each variation:
%2

The user's goal/prompt is:
"%3"

Please generate %1 DIFFERENT variations of the content.
Return ONLY a raw JSON array of objects, where each object follows the structure of the example above.
Do not include markdown formatting (like ```json ... ```), just the raw JSON.)"_s.arg(QString::number(count),
                                                                                      exampleJSON, prompt);
}

Result<QByteArray> chatCompletionsBody(const QString &userPrompt)
{
    const std::optional<QByteArray> content = encodeUtf8(userPrompt);
    if (!content)
        return fail(u"the request holds half of a surrogate pair"_s);
    using json = nlohmann::ordered_json;
    const json body{
        {"model", "gpt-4o"},
        {"messages",
         json::array({
             {{"role", "system"}, {"content", "You are a helpful assistant that outputs raw JSON."}},
             {{"role", "user"}, {"content", content->toStdString()}},
         })},
        {"temperature", 0.9},
        {"n", 1},
    };
    return QByteArray::fromStdString(body.dump());
}

} // namespace mosslantern
