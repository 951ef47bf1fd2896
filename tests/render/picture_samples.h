#pragma once

#include "render/picture/picture_loader.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <libheif/heif.h>

namespace mosslantern::samples {

/// A smooth picture without any symmetry.
QImage painting(int width, int height);

/// Written by Qt in the format of that name.
QByteArray encoded(const QImage &image, const char *format, int quality = -1);

enum class JpegColors { Rgb, Gray, Cmyk };

struct JpegOptions
{
    int quality = 95;
    int subsamplingAcross = 1; ///< 1 or 2
    int subsamplingDown = 1;
    bool progressive = false;
    JpegColors colors = JpegColors::Rgb;
    QByteArray iccProfile = {};
};
/// A profile whose colours are gray, the lighter the less cyan there is.
QByteArray cmykProfile();
/// A profile of gray pixels that say how much light there is.
QByteArray linearGrayProfile();

QByteArray jpeg(const QImage &image, const JpegOptions &options = {});

/// Red, green and blue, 16 × 9 pixels each, one below the other; of 2 frames of which the second is white.
QByteArray gif();

struct HeifOptions
{
    heif_compression_format codec = heif_compression_HEVC;
    int bits = 8;
    heif_orientation orientation = heif_orientation_normal;
    QByteArray iccProfile = {};
    int primaries = 0; ///< code points of ITU-T H.273; 0: none are written
    int transfer = 13;
};
/// A HEIC or AVIF file; empty when no encoder is installed.
QByteArray heif(const QImage &image, const HeifOptions &options = {});

/// A HEIC file that claims to be a picture of size `claimed`, and really is a grid of size `size` made of
/// `tile`, the file of one picture, `across` times `across`.
QByteArray heifGrid(const QByteArray &tile, int across, QSize size, QSize claimed);

/// A chunk of a PNG file: `content` (its type and data) with its length and check sum.
QByteArray pngChunk(const QByteArray &content);

/// The file with EXIF data that hold this orientation.
QByteArray jpegWithOrientation(const QByteArray &file, int orientation);
QByteArray pngWithOrientation(const QByteArray &file, int orientation);
QByteArray webpWithOrientation(const QByteArray &file, int orientation);
QByteArray tiffWithOrientation(const QByteArray &file, int orientation);

/// `stored` as it is to be shown with this orientation, made with Qt's transformations.
QImage upright(const QImage &stored, int orientation);

/// The error in `result`, for a message; empty when it has a picture.
QByteArray reason(const Result<Picture> &result);

/// What is wrong with `picture` as the answer to `request` if `whole` is the whole picture, upright: size,
/// region, resolution, or the colours by more than `tolerance`; empty when nothing is.
QString mistake(const Picture &picture, const PictureRequest &request, const QImage &whole, int tolerance);

} // namespace mosslantern::samples
