#include "render/picture/memory_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace mosslantern {

std::optional<MemoryFile> MemoryFile::create(const char *name)
{
    const int made = ::memfd_create(name, MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (made < 0 || made > STDERR_FILENO)
        return made < 0 ? std::nullopt : std::optional(MemoryFile(made));
    // A process that was started without standard streams gets their numbers for its first files.
    const int moved = ::fcntl(made, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    ::close(made);
    errno = error;
    return moved < 0 ? std::nullopt : std::optional(MemoryFile(moved));
}

MemoryFile::MemoryFile(MemoryFile &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{}

MemoryFile::~MemoryFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool MemoryFile::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const auto written = ::write(m_descriptor, bytes.data(), size_t(bytes.size()));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

MemoryFile::Mapping MemoryFile::sealed()
{
    struct stat status = {};
    if (::fcntl(m_descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL) != 0 ||
        ::fstat(m_descriptor, &status) != 0 || status.st_size <= 0)
        return {};
    const auto size = size_t(status.st_size);
    void *bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, m_descriptor, 0);
    return bytes == MAP_FAILED ? Mapping() : Mapping(static_cast<const uchar *>(bytes), Unmap{size});
}

void MemoryFile::Unmap::operator()(const uchar *bytes) const
{
    ::munmap(const_cast<uchar *>(bytes), size);
}

} // namespace mosslantern
