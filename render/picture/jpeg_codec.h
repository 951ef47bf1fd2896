#pragma once

#include "model/error.h"
#include "render/picture/jpeg_source.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QIODevice>
#include <QtCore/QRect>
#include <QtCore/QSize>

#include <csetjmp>

namespace mosslantern {

/// A libjpeg decompressor whose failures are return values: reads the header, then the pixels of one area in
/// strips of rows.
class JpegCodec
{
public:
    explicit JpegCodec(QIODevice &device);
    ~JpegCodec();
    JpegCodec(const JpegCodec &) = delete;
    JpegCodec &operator=(const JpegCodec &) = delete;

    [[nodiscard]] Result<> readHeader();

    [[nodiscard]] QSize size() const { return {int(m_jpeg.image_width), int(m_jpeg.image_height)}; }
    [[nodiscard]] bool isCmyk() const;
    /// The EXIF data; empty without any. Valid as long as the codec.
    [[nodiscard]] QByteArrayView exif() const;
    /// The ICC profile; empty without one. Valid as long as the codec.
    [[nodiscard]] QByteArrayView iccProfile() const;

    /// What is held of a picture whose rows do not come one after another, such as a progressive one.
    [[nodiscard]] qint64 heldBytes() const;

    /// Prepares reading `area`, in pixels of the picture at `eighths`/8 of its size. At most `memory` bytes
    /// are used for what has to be held of a progressive picture. Returns the columns that the rows will
    /// hold.
    [[nodiscard]] Result<QRect> start(const QRect &area, int eighths, qint64 memory);

    /// Reads the next `count` rows of the area into `rows`, 32 bits a pixel: red, green, blue, 255, or, of a
    /// CMYK picture, its four channels as they are stored.
    [[nodiscard]] Result<> readRows(uchar *rows, qsizetype bytesPerRow, int count);

private:
    static JpegCodec &of(j_common_ptr jpeg) { return *static_cast<JpegCodec *>(jpeg->client_data); }

    bool tryReadHeader();
    bool tryStart(JDIMENSION *left, JDIMENSION *width, int top);
    bool tryReadRows(uchar *rows, qsizetype bytesPerRow, int count);
    bool hasAverages() const;
    void noteEndOfData();
    bool isMissingTooMuch() const;
    Error failure() const;

    jpeg_decompress_struct m_jpeg{};
    jpeg_error_mgr m_errors{};
    jpeg_progress_mgr m_progress{};
    std::jmp_buf m_failed;
    JpegSource m_source;
    JOCTET *m_icc = nullptr;
    unsigned m_iccSize = 0;
    int m_firstRow = 0; ///< first and last row wanted, in pixels of the whole picture
    int m_lastRow = -1;
    bool m_ended = false;
    bool m_incomplete = false;
};

} // namespace mosslantern
