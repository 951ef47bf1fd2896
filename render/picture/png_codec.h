#pragma once

#include "model/error.h"

#include <QtCore/QIODevice>
#include <QtCore/QSize>
#include <QtGui/QColorSpace>

#include <png.h>

#include <csetjmp>

namespace mosslantern {

/// libpng, which reports errors by jumping back. Reads nothing but what the pixels and their colours need:
/// texts, which libpng would decompress, are passed over.
class PngCodec
{
public:
    /// `device` stands at the start of a PNG file and has to outlive the codec.
    explicit PngCodec(QIODevice &device);
    ~PngCodec();
    PngCodec(const PngCodec &) = delete;
    PngCodec &operator=(const PngCodec &) = delete;

    /// Reads up to the pixels. The rest is only valid afterwards.
    [[nodiscard]] Result<> readHeader();

    [[nodiscard]] QSize size() const;
    [[nodiscard]] bool isInterlaced() const;
    [[nodiscard]] bool hasAlpha() const;
    /// Invalid without any.
    [[nodiscard]] QColorSpace colorSpace() const;

    /// Reads the next `count` rows into `rows`, 32 bits a pixel: red, green, blue, and opacity or 255. Of an
    /// interlaced picture all rows have to be read at once.
    [[nodiscard]] Result<> readRows(uchar *rows, qsizetype bytesPerRow, int count);

private:
    bool tryReadHeader();
    bool tryReadRows(uchar *rows, qsizetype bytesPerRow, int count);

    QIODevice &m_device;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
    std::jmp_buf m_failed;
    bool m_ended = false;
    bool m_started = false;
};

} // namespace mosslantern
