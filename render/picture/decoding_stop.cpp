#include "render/picture/decoding_stop.h"

#include <atomic>

namespace mosslantern {

namespace {

std::atomic<bool (*)()> stop = nullptr;

} // namespace

bool isDecodingStopped()
{
    bool (*const isStopped)() = stop;
    return isStopped && isStopped();
}

void setDecodingStop(bool (*isStopped)())
{
    stop = isStopped;
}

} // namespace mosslantern
