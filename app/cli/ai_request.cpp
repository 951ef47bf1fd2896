#include "app/cli/ai_request.h"

#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "content/openai_service.h"
#include "model/preferences.h"

#include <QtCore/QProcessEnvironment>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

Result<QString> apiKey(const QProcessEnvironment &environment)
{
    QString key = Preferences().openAiApiKey();
    if (key.isEmpty())
        key = environment.value(u"OPENAI_API_KEY"_s);
    if (key.isEmpty())
        return fail(
            u"The AI service needs a key: run mosslantern-cli preferences set openAiApiKey - or set the "
            "variable OPENAI_API_KEY."_s);
    return key;
}

QString explained(const OpenAIFailure &failure)
{
    const auto *own = std::get_if<OpenAIError>(&failure);
    const bool wrongAddress = own && own->which == OpenAIError::Case::invalidURL;
    return u"AI generation failed: "_s + explain(failure) +
           (wrongAddress ? u" (the variable OPENAI_BASE_URL must hold https://HOST/PATH, or http:// for this "
                           "machine, without a user, a query or a fragment)"_s
                         : QString());
}

} // namespace

Result<QStringList> askForVariations(const QString &prompt, const QString &content, qint64 count,
                                     const Interruption &interruption)
{
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const Result<QString> key = apiKey(environment);
    if (!key)
        return std::unexpected(key.error());
    auto service = std::make_unique<OpenAIService>(OpenAIService::baseUrlFrom(environment));
    QObject context;
    // Without its service the request ends.
    QObject::connect(&interruption, &Interruption::requested, &context, [&] { service.reset(); });

    const Spinner spinner(u"waiting for the AI service"_s);
    OpenAIService::Variations variations =
        QCoro::waitFor(service->generateVariations(*key, prompt, content, count));
    if (!variations)
        return fail(explained(variations.error()));
    if (variations->size() < count)
        report(u"the AI service wrote %1 of %2 variations"_s.arg(variations->size()).arg(count));
    return *std::move(variations);
}

} // namespace mosslantern
