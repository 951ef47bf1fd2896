#include "render/picture/decoder/limits.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace mosslantern {

namespace {

// Addresses of stacks of threads, of which the AV1 decoder has one for each core, and of what is mapped
// twice.
constexpr uint64_t allowance = uint64_t(256) << 20;

// The largest pictures take 3 s on a machine of 2020; a slow one may take several times as long.
constexpr rlim_t cpuSeconds = 30;

bool limit(__rlimit_resource resource, rlim_t soft, rlim_t hard)
{
    const rlimit value{soft, hard};
    return ::setrlimit(resource, &value) == 0;
}

// Those that Qt's threads have; the filter of calls lets no other be opened.
constexpr rlim_t mostFiles = 256;

#ifdef __SANITIZE_ADDRESS__

// Its shadow memory takes more addresses than any limit of use here, and it calls the system in its own ways.
bool limitMemory(uint64_t)
{
    return true;
}

bool limitCalls()
{
    return true;
}

#else

bool limitMemory(uint64_t bytes)
{
    FILE *const status = std::fopen("/proc/self/statm", "re");
    if (!status)
        return false;
    unsigned long all = 0, data = 0; // pages
    const bool isRead = std::fscanf(status, "%lu %*u %*u %*u %*u %lu", &all, &data) == 2;
    std::fclose(status);
    const auto page = uint64_t(::sysconf(_SC_PAGESIZE));
    const uint64_t most = all * page + bytes + allowance, mostData = data * page + bytes;
    return isRead && limit(RLIMIT_DATA, mostData, mostData) && limit(RLIMIT_AS, most, most);
}

#if defined(__x86_64__)
constexpr uint32_t architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr uint32_t architecture = AUDIT_ARCH_AARCH64;
#endif

constexpr uint32_t numberAt = offsetof(seccomp_data, nr);
constexpr uint32_t architectureAt = offsetof(seccomp_data, arch);

constexpr uint32_t argumentAt(size_t index) // its lower half
{
    return uint32_t(offsetof(seccomp_data, args) + index * sizeof(uint64_t));
}

constexpr uint32_t refusal = SECCOMP_RET_ERRNO | EPERM;

constexpr sock_filter load(uint32_t offset)
{
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offset);
}

constexpr sock_filter skipUnless(uint32_t value, uint8_t count)
{
    return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, count);
}

constexpr sock_filter answer(uint32_t action)
{
    return BPF_STMT(BPF_RET | BPF_K, action);
}

/// Lets through what a program does with its own memory, threads and open files. Nothing else reaches the
/// system: no other process, no file by its name, no network.
bool limitCalls()
{
    constexpr std::array allowed{SYS_read,          SYS_pread64,
                                 SYS_readv,         SYS_write,
                                 SYS_pwrite64,      SYS_writev,
                                 SYS_lseek,         SYS_fstat,
                                 SYS_newfstatat, // as which the C library asks about open files
                                 SYS_statx,         SYS_close,
                                 SYS_mmap,          SYS_munmap,
                                 SYS_mremap,        SYS_mprotect,
                                 SYS_madvise,       SYS_brk,
                                 SYS_futex,         SYS_set_robust_list,
#ifdef SYS_rseq
                                 SYS_rseq,
#endif
                                 SYS_rt_sigaction,  SYS_rt_sigprocmask,
                                 SYS_rt_sigreturn,  SYS_sigaltstack,
                                 SYS_sched_yield,   SYS_sched_getaffinity,
                                 SYS_clock_gettime, SYS_clock_nanosleep,
                                 SYS_nanosleep,     SYS_gettimeofday,
                                 SYS_getrandom,     SYS_getpid,
                                 SYS_gettid,        SYS_sysinfo,
                                 SYS_uname,         SYS_restart_syscall,
                                 SYS_exit,          SYS_exit_group};
    std::vector<sock_filter> filter{load(architectureAt), skipUnless(architecture, 1),
                                    BPF_JUMP(BPF_JMP | BPF_JA, 1, 0, 0), answer(SECCOMP_RET_KILL_PROCESS),
                                    load(numberAt)};
    for (const long call : allowed) {
        filter.push_back(skipUnless(uint32_t(call), 1));
        filter.push_back(answer(SECCOMP_RET_ALLOW));
    }
    const auto allowIf = [&filter](long call, size_t argument, uint32_t value) {
        filter.insert(filter.end(), {skipUnless(uint32_t(call), 4), load(argumentAt(argument)),
                                     skipUnless(value, 1), answer(SECCOMP_RET_ALLOW), answer(refusal)});
    };
    // Signals to itself, as abort() has it; limits of its own, as threads ask for those of their stacks.
    allowIf(SYS_tgkill, 0, uint32_t(::getpid()));
    allowIf(SYS_prlimit64, 0, 0);
    // Threads, and no processes. What clone3() is asked for cannot be seen: the C library then takes clone().
    filter.insert(filter.end(), {skipUnless(uint32_t(SYS_clone), 3), load(argumentAt(0)),
                                 BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, CLONE_THREAD, 0, 1),
                                 answer(SECCOMP_RET_ALLOW), load(numberAt)});
#ifdef SYS_clone3
    filter.insert(filter.end(), {skipUnless(uint32_t(SYS_clone3), 1), answer(SECCOMP_RET_ERRNO | ENOSYS)});
#endif
    filter.push_back(answer(refusal));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    // For the threads that there are, too.
    return ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &program) == 0;
}

#endif

} // namespace

bool limitProcess(uint64_t memory)
{
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 && limit(RLIMIT_CORE, 0, 0) &&
           limit(RLIMIT_FSIZE, memory, memory) && limit(RLIMIT_CPU, cpuSeconds, cpuSeconds + 1) &&
           limitMemory(memory) && limit(RLIMIT_NOFILE, mostFiles, mostFiles) && limitCalls();
}

} // namespace mosslantern
