#pragma once

#include "model/error.h"

#include <QtCore/QByteArrayView>

namespace mosslantern {

/// Checks that `utf8` is one JSON text after RFC 8259 in valid UTF-8, with surrogate escapes in pairs and no
/// deeper than `maxDepth`. Written by hand because nlohmann's reader, tested against it, refuses numbers
/// beyond a double; it takes any number that the grammar allows.
Result<> checkJson(QByteArrayView utf8, int maxDepth);

} // namespace mosslantern
