#pragma once

#include "model/error.h"

#include <QtCore/QUrl>

namespace mosslantern {

/// The address of the chat completions below `baseUrl`, which ends in the version of the interface, as in
/// "https://api.openai.com/v1"; a slash at its end makes no difference. An empty address when the base is
/// malformed, carries a user, query or fragment, or is not HTTPS: the key must not travel in the open. Plain
/// HTTP is taken only to this machine ("localhost", 127.0.0.0/8, ::1).
QUrl chatCompletionsUrl(const QString &baseUrl);

/// The value of the "Authorization" header. The key is sent as it is, in UTF-8; one that would not stay
/// within the header (a line break or another control character, half of a surrogate pair) is refused.
Result<QByteArray> authorizationHeader(const QString &apiKey);

/// The text that asks for `count` variations of `exampleJSON` on the user's goal.
QString variationsPrompt(const QString &prompt, const QString &exampleJSON, qint64 count);

/// The body of the request for `userPrompt`, as compact JSON. Fails when the text holds half of a surrogate
/// pair.
Result<QByteArray> chatCompletionsBody(const QString &userPrompt);

} // namespace mosslantern
