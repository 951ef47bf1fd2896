#pragma once

#include "model/error.h"

#include <QtCore/QByteArrayView>

#include <memory>
#include <optional>

namespace mosslantern {

/// A file in memory without a name, to exchange data with another process. Closed on exec.
class MemoryFile
{
public:
    /// Unmaps what sealed() has mapped.
    struct Unmap
    {
        size_t size = 0;
        void operator()(const uchar *bytes) const;
    };
    using Mapping = std::unique_ptr<const uchar[], Unmap>;

    /// An empty file; errno says why when there is none. The descriptor is none of the three standard ones.
    [[nodiscard]] static std::optional<MemoryFile> create(const char *name);
    MemoryFile(MemoryFile &&other) noexcept;
    MemoryFile &operator=(MemoryFile &&) = delete;
    ~MemoryFile();

    [[nodiscard]] int descriptor() const { return m_descriptor; }

    /// Writes at the current position of the file.
    [[nodiscard]] bool write(QByteArrayView bytes);

    /// The content, which nobody can change from now on; null when there is none or when it cannot be had.
    [[nodiscard]] Mapping sealed();

private:
    explicit MemoryFile(int descriptor)
        : m_descriptor(descriptor)
    {}

    int m_descriptor;
};

} // namespace mosslantern
