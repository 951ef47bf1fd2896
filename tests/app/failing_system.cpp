// Preloaded into a program: lets one of its system calls fail, as a full disk, an exhausted system or a
// broken disk would. FAILING_CALL names it: `write 7` is the seventh call of that kind, `write 7+` that and
// all after it. The number of calls that were made is appended to the file FAILING_CALL_COUNT.

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

struct Plan
{
    std::string kind;
    int number = 0;
    bool andAllAfter = false;
};

const Plan &plan()
{
    static const Plan made = [] {
        Plan plan;
        char kind[16] = {};
        char plus = 0;
        const char *const text = std::getenv("FAILING_CALL");
        if (text && std::sscanf(text, "%15s %d%c", kind, &plan.number, &plus) >= 2) {
            plan.kind = kind;
            plan.andAllAfter = plus == '+';
        }
        return plan;
    }();
    return made;
}

std::atomic<int> calls = 0;

/// Whether the present call of a kind is to fail; it sets errno.
bool fails(std::string_view kind, int error)
{
    if (plan().kind != kind)
        return false;
    const int call = ++calls;
    if (call != plan().number && !(plan().andAllAfter && call > plan().number))
        return false;
    errno = error;
    return true;
}

template <typename Function>
Function *original(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

/// A font that cannot be opened is one that is not installed, for Qt: it takes the next.
bool isFont(std::string_view path)
{
    return path.ends_with(".ttf") || path.ends_with(".ttc") || path.ends_with(".otf");
}

mode_t modeFrom(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE
               ? static_cast<mode_t>(va_arg(arguments, int))
               : 0;
}

struct Report
{
    ~Report()
    {
        const char *const path = std::getenv("FAILING_CALL_COUNT");
        if (!path)
            return;
        const int file =
            original<int(const char *, int, ...)>("open")(path, O_WRONLY | O_CREAT | O_APPEND, 0600);
        const std::string line = std::to_string(calls) + '\n';
        if (original<ssize_t(int, const void *, size_t)>("write")(file, line.data(), line.size()) < 0)
            ::abort();
        ::close(file);
    }
} const report;

} // namespace

#define FAILING(kind, error, type, name, parameters, ...)                                                    \
    extern "C" type name parameters                                                                          \
    {                                                                                                        \
        static auto *const next = original<type parameters>(#name);                                          \
        return fails(kind, error) ? (type)-1 : next(__VA_ARGS__);                                            \
    }

FAILING("write", ENOSPC, ssize_t, write, (int file, const void *bytes, size_t count), file, bytes, count)
FAILING("write", ENOSPC, ssize_t, pwrite, (int file, const void *bytes, size_t count, off_t at), file, bytes,
        count, at)
FAILING("write", ENOSPC, ssize_t, pwrite64, (int file, const void *bytes, size_t count, off64_t at), file,
        bytes, count, at)
FAILING("write", ENOSPC, ssize_t, writev, (int file, const iovec *parts, int count), file, parts, count)
FAILING("write", ENOSPC, ssize_t, sendfile, (int to, int from, off_t *at, size_t count) noexcept, to, from,
        at, count)
FAILING("write", ENOSPC, ssize_t, sendfile64, (int to, int from, off64_t *at, size_t count) noexcept, to,
        from, at, count)
FAILING("write", ENOSPC, ssize_t, copy_file_range,
        (int from, off64_t *fromAt, int to, off64_t *toAt, size_t count, unsigned flags), from, fromAt, to,
        toAt, count, flags)
FAILING("write", ENOSPC, int, ftruncate, (int file, off_t size) noexcept, file, size)
FAILING("write", ENOSPC, int, ftruncate64, (int file, off64_t size) noexcept, file, size)
FAILING("fsync", EIO, int, fsync, (int file), file)
FAILING("fsync", EIO, int, fdatasync, (int file), file)
FAILING("rename", EIO, int, rename, (const char *from, const char *to) noexcept, from, to)
FAILING("rename", EIO, int, renameat2,
        (int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept, fromFolder,
        from, toFolder, to, flags)
FAILING("rename", EIO, int, link, (const char *from, const char *to) noexcept, from, to)
FAILING("rename", EIO, int, linkat,
        (int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept, fromFolder,
        from, toFolder, to, flags)
FAILING("rename", EIO, int, mkdir, (const char *path, mode_t mode) noexcept, path, mode)
FAILING("rename", EIO, int, unlink, (const char *path) noexcept, path)
FAILING("rename", EIO, int, rmdir, (const char *path) noexcept, path)
FAILING("mmap", ENOMEM, void *, mmap,
        (void *at, size_t size, int allowed, int flags, int file, off_t offset) noexcept, at, size, allowed,
        flags, file, offset)
FAILING("mmap", ENOMEM, void *, mmap64,
        (void *at, size_t size, int allowed, int flags, int file, off64_t offset) noexcept, at, size, allowed,
        flags, file, offset)
FAILING("clone", EAGAIN, pid_t, fork, () noexcept, )

extern "C" int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *),
                              void *argument) noexcept
{
    static auto *const next =
        original<int(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *)>("pthread_create");
    return fails("clone", EAGAIN) ? EAGAIN : next(thread, attributes, start, argument);
}

#define FAILING_OPEN(name)                                                                                   \
    extern "C" int name(const char *path, int flags, ...)                                                    \
    {                                                                                                        \
        static auto *const next = original<int(const char *, int, ...)>(#name);                              \
        va_list arguments;                                                                                   \
        va_start(arguments, flags);                                                                          \
        const mode_t mode = modeFrom(flags, arguments);                                                      \
        va_end(arguments);                                                                                   \
        return !isFont(path) && fails("open", EMFILE) ? -1 : next(path, flags, mode);                        \
    }
FAILING_OPEN(open)
FAILING_OPEN(open64)

#define FAILING_OPENAT(name)                                                                                 \
    extern "C" int name(int folder, const char *path, int flags, ...)                                        \
    {                                                                                                        \
        static auto *const next = original<int(int, const char *, int, ...)>(#name);                         \
        va_list arguments;                                                                                   \
        va_start(arguments, flags);                                                                          \
        const mode_t mode = modeFrom(flags, arguments);                                                      \
        va_end(arguments);                                                                                   \
        return !isFont(path) && fails("open", EMFILE) ? -1 : next(folder, path, flags, mode);                \
    }
FAILING_OPENAT(openat)
FAILING_OPENAT(openat64)
