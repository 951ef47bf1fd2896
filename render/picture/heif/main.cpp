// mosslantern-heif: reads one HEIC or AVIF picture for the process that starts it, so that whatever a file
// does to the decoders happens here. heif_answer.h says how the two talk.

#include "render/picture/heif/heif_file.h"
#include "render/picture/heif/limits.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

using namespace mosslantern;

namespace {

/// Writes `bytes` at `offset` of the answer.
bool write(std::span<const std::byte> bytes, uint64_t offset)
{
    while (!bytes.empty()) {
        const auto written = ::pwrite(STDOUT_FILENO, bytes.data(), bytes.size(), off_t(offset));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes = bytes.subspan(size_t(written));
        offset += uint64_t(written);
    }
    return true;
}

/// Ends the program. Nothing is cleaned up: that takes time, and the system does it.
[[noreturn]] void finish(const HeifAnswer &answer)
{
    ::_exit(write(std::as_bytes(std::span(&answer, 1)), 0) ? EXIT_SUCCESS : EXIT_FAILURE);
}

[[noreturn]] void finish(HeifOutcome outcome)
{
    HeifAnswer answer;
    answer.outcome = outcome;
    finish(answer);
}

/// The file on descriptor 0; empty when it cannot be had.
std::span<const std::byte> input()
{
    struct stat status = {};
    if (::fstat(STDIN_FILENO, &status) != 0 || status.st_size <= 0)
        return {};
    const auto size = size_t(status.st_size);
    void *bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
    if (bytes == MAP_FAILED)
        return {};
    return {static_cast<const std::byte *>(bytes), size};
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        return 2;
    const bool pixelsWanted = std::strcmp(argv[1], heifDecodeTask) == 0;
    const HeifFile::Limits limits{int(std::strtol(argv[2], nullptr, 10)), std::strtoll(argv[3], nullptr, 10)};
    const auto bytes = input();
    if (!limitProcess(uint64_t(limits.bytes) + bytes.size()))
        return EXIT_FAILURE;
    // Decoders allocate on threads of their own, too, where nobody would catch an exception.
    std::set_new_handler([] { finish(HeifOutcome::OutOfMemory); });
    heif_init(nullptr); // looks for decoders
    if (!forbidFiles())
        return EXIT_FAILURE;

    HeifFile file;
    HeifAnswer answer;
    file.open(bytes, limits, answer);
    if (answer.outcome != HeifOutcome::Done || !pixelsWanted)
        finish(answer);
    const auto profile = file.readColors(answer);
    answer.pixelsAt =
        (sizeof answer + profile.size() + heifPixelAlignment - 1) / heifPixelAlignment * heifPixelAlignment;
    const auto pixels = file.decode(answer);
    if (!write(profile, sizeof answer) || !write(pixels, answer.pixelsAt))
        finish(HeifOutcome::OutOfMemory);
    finish(answer);
}
