#pragma once

#include "model/library_copies.h"

#include <optional>

namespace mosslantern {

/// What became of a damaged library.
struct Recovery
{
    qint64 records = 0;       // in the library that took its place
    qint64 lost = 0;          // records of the damaged one that are known to be missing in it
    bool isDoubtful = false;  // whether some records may not be as they were saved
    QString damagedFile = {}; // where the damaged file is now, as it was
};

/// Reads the whole file of a library and checks it, without changing it.
Result<> checkLibrary(const LibraryLocation &location);

/// The newest of the library's copies that is whole.
std::optional<LibraryCopy> newestWholeCopy(const LibraryLocation &location);

/// Puts a copy in the place of the library, whose file gets another name beside it.
Result<Recovery> useCopy(const LibraryLocation &location, const LibraryCopy &copy);

/// Puts in the place of the library a new one with all that can be read of it; its file gets another name
/// beside it.
Result<Recovery> rescueLibrary(const LibraryLocation &location);

} // namespace mosslantern
