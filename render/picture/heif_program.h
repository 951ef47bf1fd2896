#pragma once

#include "render/picture/memory_file.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace mosslantern {

/// The path of mosslantern-heif, which lies beside the running program.
[[nodiscard]] QString heifProgramPath();

/// Lets `program` do `task` (heif_answer.h), for which it may take `memory` bytes, with the bytes of a HEIC
/// or AVIF file and returns what it wrote, of which nothing is checked. Waits until the program has ended; so
/// there are never more of them than threads that load pictures. May be called from any thread. A program
/// that ended in another way than by itself is an error.
[[nodiscard]] Result<MemoryFile::Mapping> runHeifProgram(const QString &program, const char *task,
                                                         const QByteArray &bytes, qint64 memory);

} // namespace mosslantern
