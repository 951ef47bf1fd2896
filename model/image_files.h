#pragma once

#include "model/error.h"

#include <QtCore/QUrl>

#include <optional>

namespace mosslantern {

class Asset;
class Store;

/// Copies the image file at `file` into the asset folder of the store, under a random name that keeps the
/// file's extension, and inserts an asset for it. On failure it makes no record and also prints
/// "Failed to copy asset: " and the reason.
Result<Asset *> importAsset(const QUrl &file, Store &store);

/// Copies the file of `asset` into the slide-image folder of its store, under a random name that keeps the
/// file's extension. Gives the copy's name, or none after printing "Failed to copy slide image: " and the
/// reason.
std::optional<QString> copySlideImage(const Asset &asset);

} // namespace mosslantern
