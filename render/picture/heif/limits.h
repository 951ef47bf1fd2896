#pragma once

#include <cstdint>

namespace mosslantern {

/// Takes from this process what reading one picture does not need: memory beyond `memory` bytes in addition
/// to a fixed allowance for the program itself, time beyond a minute, larger files than `memory` bytes, core
/// dumps, and life beyond that of the thread that started it. Returns whether all of that is in force.
[[nodiscard]] bool limitProcess(uint64_t memory);

/// Lets no more files be opened.
[[nodiscard]] bool forbidFiles();

} // namespace mosslantern
