#include "render/picture/picture_exif.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <optional>

namespace mosslantern {

namespace {

constexpr QByteArrayView exifPrefix("Exif\0\0", 6);
constexpr quint16 orientationTag = 0x0112;
constexpr quint16 shortType = 3;
constexpr int entrySize = 12;

// A file of a hundred megabytes in chunks of 8 KiB has this many; more are not looked through.
constexpr int mostChunks = 16'384;
// EXIF data of JPEG files cannot be larger either.
constexpr quint32 longestExif = 65'535;

/// Bounds-checked numbers in the byte order that the TIFF header announces.
class TiffReader
{
public:
    explicit TiffReader(QByteArrayView bytes)
        : m_bytes(bytes)
        , m_bigEndian(bytes.startsWith("MM"))
    {}

    template <typename Number>
    std::optional<Number> at(qsizetype offset) const
    {
        if (offset < 0 || offset > m_bytes.size() - qsizetype(sizeof(Number)))
            return std::nullopt;
        const char *data = m_bytes.data() + offset;
        return m_bigEndian ? qFromBigEndian<Number>(data) : qFromLittleEndian<Number>(data);
    }

private:
    QByteArrayView m_bytes;
    bool m_bigEndian;
};

} // namespace

Orientation exifOrientation(QByteArrayView exif)
{
    if (exif.startsWith(exifPrefix))
        exif = exif.sliced(exifPrefix.size());
    if (!exif.startsWith("II") && !exif.startsWith("MM"))
        return {};
    const TiffReader tiff(exif);
    if (tiff.at<quint16>(2) != 42)
        return {};
    const qsizetype directory = tiff.at<quint32>(4).value_or(0);
    const int entries = tiff.at<quint16>(directory).value_or(0);
    for (int i = 0; i < entries; ++i) {
        const qsizetype entry = directory + 2 + i * entrySize;
        const auto tag = tiff.at<quint16>(entry);
        if (!tag)
            return {};
        if (tag == orientationTag && tiff.at<quint16>(entry + 2) == shortType)
            return Orientation::fromExif(tiff.at<quint16>(entry + 8).value_or(0));
    }
    return {};
}

Orientation chunkOrientation(QIODevice &device, PictureFormat format)
{
    constexpr int headerSize = 8;
    const bool png = format == PictureFormat::Png;
    const QByteArrayView wanted = png ? "eXIf" : "EXIF";
    Orientation orientation;
    qint64 position = png ? 8 : 12;
    for (int i = 0; i < mostChunks && position <= device.size() - headerSize; ++i) {
        device.seek(position);
        const QByteArray header = device.read(headerSize);
        if (header.size() < headerSize)
            break;
        const auto length = png ? qFromBigEndian<quint32>(header.constData())
                                : qFromLittleEndian<quint32>(header.constData() + 4);
        if (QByteArrayView(header).sliced(png ? 4 : 0, 4) == wanted) {
            orientation = exifOrientation(device.read(std::min(length, longestExif)));
            break;
        }
        const qint64 padded = png ? qint64(length) + 4 : qint64(length) + length % 2;
        position += headerSize + padded;
    }
    device.seek(0);
    return orientation;
}

} // namespace mosslantern
