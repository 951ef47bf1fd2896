#pragma once

#include "model/error.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>

#include <cstdint>

class QIODevice;

namespace mosslantern {

/// One stretch of rows of a PNG picture, compressed on its own: bands can be made in any order, in several
/// threads, and are then written one after another.
struct PngBand
{
    QByteArray deflated;   // part of one raw deflate stream, ending on a whole byte
    uint32_t adler32 = 1;  // of the filtered bytes
    qsizetype rawSize = 0; // number of filtered bytes
};

/// Filters (Paeth, every row) and compresses `rows` rows of plain RGBA, `width` pixels each. `above`: the row
/// before the first of them, null for the top of the picture. `last`: the band ends the picture.
[[nodiscard]] PngBand encodePngBand(const uint8_t *pixels, const uint8_t *above, int width, int rows,
                                    bool last);

/// The size of the file that writePng() makes of these bands.
[[nodiscard]] qint64 pngFileSize(const QList<PngBand> &bands);

/// Writes the PNG picture (PNG specification, third edition) of these bands: 8-bit RGBA, or RGB of an
/// opaque one, marked as sRGB. The
/// error is the device's.
[[nodiscard]] Result<> writePng(QIODevice &device, QSize size, const QList<PngBand> &bands,
                                bool isOpaque = false);

} // namespace mosslantern
