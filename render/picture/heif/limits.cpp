#include "render/picture/heif/limits.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <csignal>

namespace mosslantern {

namespace {

// Code, data and stacks: the libraries take 31 MiB of addresses, and the AV1 decoder has a thread for each
// core.
constexpr uint64_t programBytes = uint64_t(160) << 20;

// The largest pictures take 7 s on a machine of 2020; a slow one may take several times as long.
constexpr rlim_t cpuSeconds = 60;

bool limit(__rlimit_resource resource, rlim_t soft, rlim_t hard)
{
    const rlimit value{soft, hard};
    return ::setrlimit(resource, &value) == 0;
}

bool limitMemory([[maybe_unused]] uint64_t bytes)
{
#ifdef __SANITIZE_ADDRESS__
    return true; // its shadow memory takes more addresses than any limit of use here
#else
    return limit(RLIMIT_AS, bytes, bytes);
#endif
}

} // namespace

bool limitProcess(uint64_t memory)
{
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           limit(RLIMIT_CORE, 0, 0) && limit(RLIMIT_FSIZE, memory, memory) &&
           limit(RLIMIT_CPU, cpuSeconds, cpuSeconds + 1) && limitMemory(memory + programBytes);
}

bool forbidFiles()
{
    return limit(RLIMIT_NOFILE, 0, 0);
}

} // namespace mosslantern
