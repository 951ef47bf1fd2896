#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QIODevice>

#include <memory>

namespace mosslantern {

/// Reads one picture file.
class FileDecoder
{
public:
    /// For a format that this program reads: all but JPEG and PNG.
    [[nodiscard]] static std::unique_ptr<FileDecoder> of(PictureFormat format);

    virtual ~FileDecoder() = default;

    /// Loads all code that reading needs, for files cannot be opened later.
    virtual void load() = 0;
    /// Reads the headers: the picture's size, upright, if it is one that is accepted. `device` stands at its
    /// start and has to outlive this.
    [[nodiscard]] virtual Result<QSize> open(QIODevice &device) = 0;
    /// The most bytes that decode() will hold.
    [[nodiscard]] virtual qint64 bytesFor(const PictureRequest &request) const = 0;
    [[nodiscard]] virtual Result<Picture> decode(const PictureRequest &request) = 0;
};

} // namespace mosslantern
