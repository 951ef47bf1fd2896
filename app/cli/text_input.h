#pragma once

#include "model/error.h"

namespace mosslantern {

/// The text in a file, or in standard input for "-"; without its byte order mark. Fails when it is not UTF-8
/// or longer than 64 MiB.
Result<QString> readText(const QString &file);

/// The bytes of a file, or of standard input for "-". Fails when there are more than 128 MiB.
Result<QByteArray> readBytes(const QString &file);

} // namespace mosslantern
