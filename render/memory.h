#pragma once

namespace mosslantern {

/// Makes this process give blocks of 4 MB and more, that is pictures, back to the system as soon as they are
/// freed. Left alone, the allocator keeps them for later once it has seen a few: 35 MB more at the peak of an
/// export. Call it first thing in main().
void returnLargeBlocks();

} // namespace mosslantern
