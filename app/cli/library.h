#pragma once

#include "app/cli/arguments.h"
#include "model/store.h"

namespace mosslantern {

/// The library that the command line names, or the user's own.
LibraryLocation libraryLocation(const Arguments &arguments);

/// Opens that library, or makes it, to change it.
Result<std::unique_ptr<Store>> openOrMakeLibrary(const Arguments &arguments);

/// As openOrMakeLibrary(), but a folder named by --library must hold a library already.
Result<std::unique_ptr<Store>> openLibraryToChange(const Arguments &arguments);

/// Opens a library that is there already, if only for reading.
Result<std::unique_ptr<Store>> openLibrary(const Arguments &arguments);

/// Saves all changes; reports when that fails.
bool saveLibrary(Store &store);

} // namespace mosslantern
