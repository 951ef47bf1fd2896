#pragma once

#include "model/store.h"

namespace mosslantern {

class Asset;
class Interruption;

struct PictureImport
{
    std::vector<Asset *> assets;
    /// How many files and folders were reported and left out.
    qsizetype problems = 0;
};

/// Imports picture files and the pictures of folders, in the order of the arguments. Reports each one that is
/// missing, is no picture or cannot be copied, and goes on with the next. Stops when there is an
/// interruption.
PictureImport importPictures(const QStringList &filesAndFolders, Store &store,
                             const Interruption &interruption);

} // namespace mosslantern
