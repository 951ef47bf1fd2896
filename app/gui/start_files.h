#pragma once

#include "model/store.h"

#include <future>

namespace mosslantern {

/// What a start reads before there is a window.
struct StartFiles
{
    Result<> fonts; // whether the interface's fonts are registered
    Result<std::unique_ptr<Store>> store;
};

/// Reads them in a thread of its own. The store belongs to the calling thread in the end.
std::future<StartFiles> readStartFiles(const LibraryLocation &location);

} // namespace mosslantern
