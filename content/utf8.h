#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace mosslantern {

/// `text` in UTF-8, or nothing when it holds half of a surrogate pair, which UTF-8 cannot express.
std::optional<QByteArray> encodeUtf8(QStringView text);

/// `bytes` as text, or nothing when they are not UTF-8. A byte order mark stays in the text.
std::optional<QString> decodeUtf8(QByteArrayView bytes);

} // namespace mosslantern
