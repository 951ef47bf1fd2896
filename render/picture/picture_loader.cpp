#include "render/picture/picture_loader.h"

#include "render/picture/jpeg_decoder.h"
#include "render/picture/png_decoder.h"
#include "render/picture/supervised_decoder.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

constexpr qint64 formatBytes = 128;

// Of 200 megapixels a JPEG or HEIC file takes 100 MB in the best quality; TIFF and BMP files need not be
// compressed.
constexpr qint64 mostCodedBytes = qint64(256) << 20;
constexpr qint64 mostPlainBytes = qint64(1) << 30;

/// The format of the file that `device` stands at the start of.
Result<PictureFormat> acceptedFormat(QIODevice &device)
{
    const QByteArray head = device.peek(formatBytes);
    if (head.isEmpty())
        return fail(u"The picture file is empty."_s);
    const auto format = pictureFormat(head);
    if (!format)
        return fail(u"The file is not a JPEG, PNG, WebP, GIF, BMP, TIFF, HEIC or AVIF picture."_s);
    const bool isCoded =
        *format == PictureFormat::Jpeg || *format == PictureFormat::Heic || *format == PictureFormat::Avif;
    if (device.size() > (isCoded ? mostCodedBytes : mostPlainBytes))
        return fail(u"The picture file is too large."_s);
    return *format;
}

Result<Picture> decode(QIODevice &device, const PictureRequest &request)
{
    const auto format = acceptedFormat(device);
    if (!format)
        return std::unexpected(format.error());
    if (*format == PictureFormat::Jpeg)
        return decodeJpeg(device, request);
    if (*format == PictureFormat::Png)
        return decodePng(device, request);
    return decodeSupervised(device, *format, request);
}

Result<PictureInfo> readInfo(QIODevice &device)
{
    const auto format = acceptedFormat(device);
    if (!format)
        return std::unexpected(format.error());
    if (*format == PictureFormat::Jpeg)
        return readJpegInfo(device);
    if (*format == PictureFormat::Png)
        return readPngInfo(device);
    return readInfoSupervised(device, *format);
}

/// Opens a regular file only: opening a pipe would wait for its other end.
Result<> open(QFile &file)
{
    const QFileInfo info(file.fileName());
    if (!info.exists())
        return fail(u"The picture file is missing."_s);
    if (!info.isFile())
        return fail(u"This is not a picture file."_s);
    if (!file.open(QIODevice::ReadOnly))
        return fail(u"The picture file could not be opened: %1"_s.arg(file.errorString()));
    return {};
}

} // namespace

Result<Picture> loadPicture(const QString &path, const PictureRequest &request)
{
    QFile file(path);
    if (const auto opened = open(file); !opened)
        return std::unexpected(opened.error());
    return decode(file, request);
}

Result<Picture> decodePicture(const QByteArray &bytes, const PictureRequest &request)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return decode(buffer, request);
}

qint64 mostImageBytes(const QString &path, const PictureRequest &request)
{
    QFile file(path);
    if (!open(file))
        return 0;
    const auto format = acceptedFormat(file);
    if (!format)
        return 0;
    const bool isReadHere = *format == PictureFormat::Jpeg || *format == PictureFormat::Png;
    if (!isReadHere)
        return mostImageBytes(announcedSize(file, *format), request);
    const auto info = readInfo(file);
    return info ? mostImageBytes(info->size, request) : 0;
}

Result<PictureInfo> readPictureInfo(const QString &path)
{
    QFile file(path);
    if (const auto opened = open(file); !opened)
        return std::unexpected(opened.error());
    return readInfo(file);
}

} // namespace mosslantern
