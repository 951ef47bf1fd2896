#pragma once

#include "content/http_reader.h"
#include "content/openai_error.h"

#include <QtCore/QStringList>

namespace mosslantern {

/// The part of a chat-completions answer that is read. Each member is required and must not be null.
struct OpenAIResponse
{
    /// What the service says.
    struct Message
    {
        QString content;
    };
    /// One of the answers that were asked for.
    struct Choice
    {
        Message message;
    };

    QList<Choice> choices;

    /// Fails on anything but strict JSON of this form; other members are ignored.
    static Result<OpenAIResponse> decode(QByteArrayView body);
};

/// The slide-content documents, pretty-printed, that an answer lists: status, body, first choice, fences and
/// array are checked in this order. `apiKey` is left out of the text of an apiError, for a service may repeat
/// it. Prints the body of an apiError that is UTF-8.
std::expected<QStringList, OpenAIFailure> readVariations(const HttpAnswer &answer, const QString &apiKey);

/// The last steps of readVariations(): from the text of the first choice to the list.
std::expected<QStringList, OpenAIFailure> readVariationList(const QString &content);

} // namespace mosslantern
