#pragma once

#include "content/http_exchange.h"
#include "content/openai_error.h"

#include <QtCore/QStringList>
#include <qcoro/qcorotask.h>

#include <memory>

class QProcessEnvironment;

namespace mosslantern {

/// Asks the OpenAI chat-completions service for variations of a slide-content document.
class OpenAIService
{
public:
    /// Documents in the order of the answer, or why there are none.
    using Variations = std::expected<QStringList, OpenAIFailure>;

    /// `baseUrl` as chatCompletionsUrl() takes it.
    explicit OpenAIService(QString baseUrl = defaultBaseUrl(), HttpLimits limits = {});

    /// "https://api.openai.com/v1".
    static QString defaultBaseUrl();

    /// The base that the variable OPENAI_BASE_URL gives, as the service's own client libraries read it, or
    /// the default when it is missing or empty.
    static QString baseUrlFrom(const QProcessEnvironment &environment);

    /// Variations of `exampleJSON` on the user's goal `prompt`, each a pretty-printed object; `count` is
    /// asked for and not enforced. One request, no retry. A run that is under way when the service is
    /// destroyed ends with a failure, from the event loop.
    QCoro::Task<Variations> generateVariations(QString apiKey, QString prompt, QString exampleJSON,
                                               qint64 count);

private:
    QString m_baseUrl;
    HttpLimits m_limits;
    /// Owns the requests under way.
    std::unique_ptr<QObject> m_runs;
};

} // namespace mosslantern
