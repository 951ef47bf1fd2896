#include "render/export/png_encoder.h"

#include "render/export/png_filter.h"

#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

#include <isa-l.h>
#include <zlib.h>

#include <vector>

namespace mosslantern {

namespace {

constexpr char paethTag = 4;
constexpr int compressionLevel = 2;

/// Deflate's own growth on data that cannot be compressed (stored blocks), with room to spare.
qsizetype deflateBound(qsizetype size)
{
    return size + size / 1000 + 1024;
}

void appendBigEndian(QByteArray &to, uint32_t value)
{
    std::array<char, 4> bytes{};
    qToBigEndian(value, bytes.data());
    to.append(bytes.data(), bytes.size());
}

uint32_t crcOf(uint32_t crc, const QByteArray &bytes)
{
    return crc32_gzip_refl(crc, reinterpret_cast<const unsigned char *>(bytes.constData()),
                           static_cast<uint64_t>(bytes.size()));
}

/// Writes chunks until the first failure.
class ChunkWriter
{
public:
    explicit ChunkWriter(QIODevice &device)
        : m_device(device)
    {}

    /// The data may come in pieces, so that a band need not be copied.
    void chunk(const char (&type)[5], std::initializer_list<QByteArray> pieces)
    {
        qsizetype size = 0;
        const QByteArray name(type, 4);
        uint32_t crc = crcOf(0, name);
        for (const QByteArray &piece : pieces) {
            size += piece.size();
            crc = crcOf(crc, piece);
        }
        QByteArray head;
        appendBigEndian(head, static_cast<uint32_t>(size));
        write(head + name);
        for (const QByteArray &piece : pieces)
            write(piece);
        QByteArray tail;
        appendBigEndian(tail, crc);
        write(tail);
    }

    /// A device that takes only a part tells the reason when it is given the rest.
    void write(const QByteArray &bytes)
    {
        for (qsizetype done = 0; m_written && done < bytes.size();) {
            const qint64 count = m_device.write(bytes.constData() + done, bytes.size() - done);
            m_written = count > 0;
            done += count;
        }
    }

    [[nodiscard]] bool succeeded() const { return m_written; }

private:
    QIODevice &m_device;
    bool m_written = true;
};

} // namespace

PngBand encodePngBand(const uint8_t *pixels, const uint8_t *above, int width, int rows, bool last)
{
    const int rowBytes = 4 * width;
    std::vector<uint8_t> filtered(static_cast<size_t>(rows) * (static_cast<size_t>(rowBytes) + 1));
    const std::vector<uint8_t> zeros(above ? 0 : static_cast<size_t>(rowBytes));
    if (!above)
        above = zeros.data();
    uint8_t *out = filtered.data();
    for (int y = 0; y < rows; ++y) {
        const uint8_t *row = pixels + static_cast<ptrdiff_t>(y) * rowBytes;
        *out = paethTag;
        paethFilter(row, y == 0 ? above : row - rowBytes, rowBytes, out + 1);
        out += rowBytes + 1;
    }

    PngBand band;
    band.rawSize = static_cast<qsizetype>(filtered.size());
    band.adler32 = isal_adler32(1, filtered.data(), filtered.size());
    band.deflated.resize(deflateBound(band.rawSize));

    std::vector<uint8_t> levelBuffer(ISAL_DEF_LVL2_DEFAULT);
    isal_zstream stream{};
    isal_deflate_init(&stream);
    stream.level = compressionLevel;
    stream.level_buf = levelBuffer.data();
    stream.level_buf_size = static_cast<uint32_t>(levelBuffer.size());
    stream.flush = last ? NO_FLUSH : FULL_FLUSH;
    stream.end_of_stream = last ? 1 : 0;
    stream.next_in = filtered.data();
    stream.avail_in = static_cast<uint32_t>(filtered.size());
    stream.next_out = reinterpret_cast<uint8_t *>(band.deflated.data());
    stream.avail_out = static_cast<uint32_t>(band.deflated.size());
    [[maybe_unused]] const int result = isal_deflate(&stream);
    Q_ASSERT(result == COMP_OK && stream.avail_in == 0 && stream.avail_out > 0);
    band.deflated.resize(band.deflated.size() - static_cast<qsizetype>(stream.avail_out));
    return band;
}

qint64 pngFileSize(const QList<PngBand> &bands)
{
    constexpr qint64 chunkFrame = 12; // length, name and checksum
    constexpr qint64 signature = 8;
    constexpr qint64 header = chunkFrame + 13;
    constexpr qint64 colors = chunkFrame + 1;
    constexpr qint64 zlibFrame = 6;
    qint64 size = signature + header + colors + zlibFrame + chunkFrame;
    for (const PngBand &band : bands)
        size += chunkFrame + band.deflated.size();
    return size;
}

Result<> writePng(QIODevice &device, QSize size, const QList<PngBand> &bands, bool isOpaque)
{
    ChunkWriter png(device);
    png.write(QByteArray("\x89PNG\r\n\x1a\n", 8));

    QByteArray header;
    appendBigEndian(header, static_cast<uint32_t>(size.width()));
    appendBigEndian(header, static_cast<uint32_t>(size.height()));
    // 8 bits, RGB or RGBA, deflate, adaptive filters, not interlaced
    header.append(isOpaque ? "\x08\x02\x00\x00\x00" : "\x08\x06\x00\x00\x00", 5);
    png.chunk("IHDR", {header});
    png.chunk("sRGB", {QByteArray(1, '\0')}); // rendering intent: perceptual

    uLong checksum = 1;
    for (qsizetype i = 0; i < bands.size(); ++i) {
        const PngBand &band = bands[i];
        checksum = adler32_combine(checksum, band.adler32, static_cast<z_off_t>(band.rawSize));
        const QByteArray zlibHeader = i == 0 ? QByteArray("\x78\x01", 2) : QByteArray();
        QByteArray zlibTrailer;
        if (i + 1 == bands.size())
            appendBigEndian(zlibTrailer, static_cast<uint32_t>(checksum));
        png.chunk("IDAT", {zlibHeader, band.deflated, zlibTrailer});
    }
    png.chunk("IEND", {});
    if (!png.succeeded())
        return fail(device.errorString());
    return {};
}

} // namespace mosslantern
