#pragma once

#include "model/error.h"

#include <QtCore/QByteArray>

#include <functional>

namespace mosslantern {

/// The most encodings that encodeWithin() makes.
inline constexpr int mostEncodings = 5;

/// The best file of at most `mostBytes` that a few encodings find: at `quality` if that fits, else at a lower
/// one. A larger file, of the lowest quality, where none fits. Passes on the first failure of `encode`, which
/// is called with qualities of 1 and more.
[[nodiscard]] Result<QByteArray> encodeWithin(qint64 mostBytes, int quality,
                                              const std::function<Result<QByteArray>(int)> &encode);

} // namespace mosslantern
