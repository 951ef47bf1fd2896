#pragma once

#include <cstdint>

namespace mosslantern {

/// Takes from this process what reading one picture does not need, once all of its code is loaded: memory
/// beyond `memory` bytes in addition to what it has, time beyond half a minute, larger
/// files than that, the opening of files, core dumps, being looked into, life beyond that of the
/// thread that started it, and every call of the system but those by which programs reckon. Returns whether
/// all of that is in force.
[[nodiscard]] bool limitProcess(uint64_t memory);

} // namespace mosslantern
