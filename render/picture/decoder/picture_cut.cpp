#include "render/picture/decoder/picture_cut.h"

#include "render/picture/picture_geometry.h"

#include <QtCore/QtEndian>

#include <cstdlib>

namespace mosslantern {

namespace {

/// The size of the table of colours that the flags of a GIF file announce.
qint64 colorBytes(uchar flags)
{
    return flags & 0x80 ? 3 << ((flags & 7) + 1) : 0;
}

/// Skips blocks of data up to the empty one. Returns whether there is one.
bool skipBlocks(QIODevice &device)
{
    char size = 0;
    while (device.getChar(&size)) {
        if (size == 0)
            return true;
        if (device.skip(uchar(size)) != uchar(size))
            return false;
    }
    return false;
}

bool isGifCutShort(QIODevice &device)
{
    constexpr qint64 headerSize = 13, frameSize = 9;
    constexpr char extension = 0x21, frame = 0x2C;
    const QByteArray header = device.read(headerSize);
    if (header.size() < headerSize)
        return true;
    device.skip(colorBytes(uchar(header[10])));
    char kind = 0;
    while (device.getChar(&kind)) {
        if (kind == frame) {
            const QByteArray head = device.read(frameSize);
            if (head.size() < frameSize)
                return true;
            device.skip(colorBytes(uchar(head[8])) + 1);
            return !skipBlocks(device);
        }
        // Other bytes between the blocks are what decoders look past.
        if (kind == extension && (device.skip(1) != 1 || !skipBlocks(device)))
            return true;
    }
    return true;
}

bool isBmpCutShort(QIODevice &device)
{
    constexpr qint64 headerSize = 38;
    constexpr quint32 newHeader = 40, runLengths = 1, shorterRunLengths = 2;
    const QByteArray header = device.read(headerSize);
    if (header.size() < headerSize)
        return true;
    const char *const at = header.constData();
    const qint64 start = qFromLittleEndian<quint32>(at + 10);
    if (qFromLittleEndian<quint32>(at + 14) < newHeader)
        return false; // of OS/2, which decoders refuse
    const auto compression = qFromLittleEndian<quint32>(at + 30);
    qint64 size = qFromLittleEndian<quint32>(at + 34);
    if (compression != runLengths && compression != shorterRunLengths) {
        const qint64 width = qFromLittleEndian<qint32>(at + 18), height = qFromLittleEndian<qint32>(at + 22);
        const qint64 bits = qFromLittleEndian<quint16>(at + 28);
        if (width < 1 || width > longestPictureSide || std::abs(height) > longestPictureSide || bits > 32)
            return false; // which decoders refuse
        const qint64 bitsPerRow = width * bits;
        size = (bitsPerRow + 31) / 32 * 4 * std::abs(height);
    }
    return start + size - size / 8 > device.size();
}

} // namespace

bool isCutShort(QIODevice &device, PictureFormat format)
{
    device.seek(0);
    const bool isCut = format == PictureFormat::Gif   ? isGifCutShort(device)
                       : format == PictureFormat::Bmp ? isBmpCutShort(device)
                                                      : false;
    device.seek(0);
    return isCut;
}

} // namespace mosslantern
