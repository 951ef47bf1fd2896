#pragma once

#include "render/picture/memory_file.h"
#include "render/picture/picture_loader.h"

#include <QtCore/QByteArray>
#include <QtGui/QColorSpace>

namespace mosslantern {

/// The primary picture of a HEIC or AVIF file, turned, mirrored and cropped as the file says; EXIF data in
/// such a file describe nothing more. Decoded by a process of its own: libheif takes far more memory for some
/// broken files than any picture needs, and a fault in a decoder must not end this process.
[[nodiscard]] Result<Picture> decodeHeif(const QByteArray &bytes, const PictureRequest &request);
[[nodiscard]] Result<PictureInfo> readHeifInfo(const QByteArray &bytes, PictureFormat format);

/// What an answer of mosslantern-heif (heif_answer.h) says of a picture.
struct HeifPicture
{
    QSize size;
    QImage image; ///< null when the answer is without pixels; holds on to the mapping otherwise
    QColorSpace colorSpace;
};

/// Reads an answer, which is trusted in nothing.
[[nodiscard]] Result<HeifPicture> readHeifAnswer(MemoryFile::Mapping answer);

} // namespace mosslantern
