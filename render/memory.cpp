#include "render/memory.h"

#include <malloc.h>

namespace mosslantern {

void returnLargeBlocks()
{
    ::mallopt(M_MMAP_THRESHOLD, 4 << 20);
}

} // namespace mosslantern
