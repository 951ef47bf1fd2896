#pragma once

#include <QtCore/QString>

namespace mosslantern {

/// `text` with "[API key]" in place of `secret` and of the forms in which an answer may repeat it: trimmed,
/// with characters escaped as in JSON or in an address, and in Base64, whatever stands before and behind it
/// there. A secret of less than eight characters is left: replacing a few letters would only garble the text.
QString withoutSecret(const QString &text, const QString &secret);

} // namespace mosslantern
