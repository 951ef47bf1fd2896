#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <optional>

namespace mosslantern {

/// The name of the folder of a batch: its name with "-" for "/", and where no folder can have that name, one
/// like it.
[[nodiscard]] QString batchFolderName(const std::optional<QString> &batchName);

/// The name proposed for the folder of a single export at `time`: "Slideshow_2025-03-03_14-05-09".
[[nodiscard]] QString suggestedFolderName(const QDateTime &time);

} // namespace mosslantern
