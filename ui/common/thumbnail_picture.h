#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace mosslantern {

/// What a thumbnail shows, and how large.
struct ThumbnailRequest
{
    QString path;
    QSize size;            // points
    double radius = 0;     // of the continuous corners, points
    double pixelRatio = 1; // pixels per point
    bool hasShadow = false;

    friend bool operator==(const ThumbnailRequest &, const ThumbnailRequest &) = default;
};

size_t qHash(const ThumbnailRequest &request, size_t seed = 0);

/// How far the image of a thumbnail with a shadow reaches beyond its frame on every side, in points.
inline constexpr double thumbnailShadowMargin = 4;

/// The picture, scaled to fill its frame and cut to the rounded corners, on its shadow (black 33 %, radius 2)
/// where that is wanted; premultiplied. Null when the file cannot be shown. May be called from any thread.
QImage makeThumbnail(const ThumbnailRequest &request);

/// The same with the light gray (20 %) that stands for a picture that is not there.
QImage makeThumbnailPlaceholder(const ThumbnailRequest &request);

} // namespace mosslantern
