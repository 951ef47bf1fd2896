#pragma once

#include "render/picture/memory_file.h"
#include "render/picture/picture_loader.h"

#include <QtCore/QFileDevice>

namespace mosslantern {

/// Pictures of all formats but JPEG and PNG, decoded by a process of its own, bounded in memory and time:
/// some broken files make decoders take far more than any picture needs, and a fault in one must neither end
/// this process nor reach what it knows. `device` stands at its start.
[[nodiscard]] Result<Picture> decodeSupervised(QIODevice &device, PictureFormat format,
                                               const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readInfoSupervised(QIODevice &device, PictureFormat format);

/// The picture's size as the start of the file has it, which need not be true; invalid when it is not simple
/// to tell.
[[nodiscard]] QSize announcedSize(QIODevice &device, PictureFormat format);

/// What the program answered. A picture without pixels answers the question for its size alone.
[[nodiscard]] Result<Picture> readDecoderAnswer(MemoryFile::Mapping answer);

} // namespace mosslantern
