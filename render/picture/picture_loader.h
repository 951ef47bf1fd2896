#pragma once

#include "model/error.h"
#include "render/picture/picture_format.h"
#include "render/picture/picture_geometry.h"

#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace mosslantern {

/// What is known of a picture without decoding it.
struct PictureInfo
{
    PictureFormat format;
    QSize size; ///< pixels, upright
};

/// A decoded picture, upright and in sRGB.
struct Picture
{
    /// Format_RGBX8888 when the picture is opaque, Format_RGBA8888_Premultiplied otherwise.
    QImage image;
    /// The whole picture in pixels, upright.
    QSize fullSize;
    /// The part of the whole picture that `image` shows, in pixels of the whole picture. Of a reduced image
    /// the last row or column may stand for less than it spans, so the region can end past the picture's
    /// edge.
    QRectF region;
};

/// Reads the first picture of a JPEG, PNG, WebP, GIF, BMP, TIFF, HEIC or AVIF file, recognised by its
/// content, turns it upright as its EXIF orientation says and converts its colours to sRGB.
///
/// The image is large enough for `request` wherever the picture has the pixels, and never much larger.
/// Refused are pictures of more than 200 megapixels and those that would take more than decodingMemory to
/// decode; where other threads decode, too, it waits until there is room. A damaged file is shown as far as
/// it can be read; a JPEG, PNG, GIF or BMP file of which a substantial part is missing is an error. May be
/// called from any thread.
[[nodiscard]] Result<Picture> loadPicture(const QString &path, const PictureRequest &request);

/// As loadPicture(), from the bytes of a file.
[[nodiscard]] Result<Picture> decodePicture(const QByteArray &bytes, const PictureRequest &request);

/// The most bytes that the image of loadPicture() will take, from the file's start; 0 when it is no picture.
/// May be called from any thread, and starts no process.
[[nodiscard]] qint64 mostImageBytes(const QString &path, const PictureRequest &request);

/// The format and upright size of a picture, from its header alone. May be called from any thread.
[[nodiscard]] Result<PictureInfo> readPictureInfo(const QString &path);

} // namespace mosslantern
