#pragma once

#include "render/picture/memory_file.h"
#include "render/picture/picture_loader.h"

#include <QtCore/QIODevice>

#include <optional>

namespace mosslantern {

/// The path of mosslantern-decoder, which belongs to the running program.
[[nodiscard]] QString decoderPath();

struct DecoderTask
{
    PictureFormat format;
    qint64 memory;                         ///< bytes that decoding may take
    std::optional<PictureRequest> request; ///< none: only the picture's size is wanted
};

/// Lets `program` do `task` with the file of `device`, which stands at its start, and returns what it wrote,
/// of which nothing is checked. The program gets nothing of this process but that file: no environment, no
/// other descriptor. Waits until it has ended; so there are never more of them than threads that load
/// pictures. May be called from any thread. A program that ended in another way than by itself is an error,
/// and so is one that is ended since decoding is stopped.
[[nodiscard]] Result<MemoryFile::Mapping> runDecoder(const QString &program, const DecoderTask &task,
                                                     QIODevice &device);

} // namespace mosslantern
