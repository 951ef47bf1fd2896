#include "content/openai_service.h"

#include "content/openai_answer.h"
#include "content/openai_request.h"

#include <QtCore/QProcessEnvironment>
#include <qcoro/qcorofuture.h>

namespace mosslantern {

using namespace Qt::StringLiterals;

OpenAIService::OpenAIService(QString baseUrl, HttpLimits limits)
    : m_baseUrl(std::move(baseUrl))
    , m_limits(limits)
    , m_runs(std::make_unique<QObject>())
{}

QString OpenAIService::defaultBaseUrl()
{
    return u"https://api.openai.com/v1"_s;
}

QString OpenAIService::baseUrlFrom(const QProcessEnvironment &environment)
{
    const QString base = environment.value(u"OPENAI_BASE_URL"_s);
    return base.isEmpty() ? defaultBaseUrl() : base;
}

QCoro::Task<OpenAIService::Variations> OpenAIService::generateVariations(QString apiKey, QString prompt,
                                                                         QString exampleJSON, qint64 count)
{
    const QUrl url = chatCompletionsUrl(m_baseUrl);
    if (url.isEmpty())
        co_return Variations(std::unexpect, OpenAIError{OpenAIError::Case::invalidURL, {}});
    const Result<QByteArray> authorization = authorizationHeader(apiKey);
    if (!authorization)
        co_return Variations(std::unexpect, authorization.error());
    const Result<QByteArray> body = chatCompletionsBody(variationsPrompt(prompt, exampleJSON, count));
    if (!body)
        co_return Variations(std::unexpect, body.error());

    const HttpRequest request{
        .method = "POST",
        .url = url,
        .headers = {{"Content-Type", "application/json"}, {"Authorization", *authorization}},
        .body = *body};
    // The service may be gone when the answer comes; nothing below looks at it.
    const Result<HttpAnswer> answer = co_await exchangeOnce(request, m_limits, m_runs.get());
    if (!answer)
        co_return Variations(std::unexpect, answer.error());
    co_return readVariations(*answer, apiKey);
}

} // namespace mosslantern
