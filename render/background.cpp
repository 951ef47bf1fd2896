#include "render/background.h"

#include "render/picture/picture_loader.h"

namespace mosslantern {

namespace {

/// `part` of the whole picture, in the pixels of its decoded image.
QRectF inImage(const QRectF &part, const Picture &picture)
{
    const double across = picture.image.width() / picture.region.width();
    const double down = picture.image.height() / picture.region.height();
    const QPointF at = part.topLeft() - picture.region.topLeft();
    return {at.x() * across, at.y() * down, part.width() * across, part.height() * down};
}

} // namespace

Background loadBackground(const QString &path, const Canvas &canvas)
{
    return tryLoadBackground(path, canvas).value_or(missingPictureColor);
}

Result<Background> tryLoadBackground(const QString &path, const Canvas &canvas)
{
    if (path.isEmpty())
        return noPictureColor;
    const Result<Picture> picture = loadPicture(path, {canvas.pixelSize(), true});
    if (!picture)
        return std::unexpected(picture.error());
    return PictureFill{picture->image, inImage(coverRegion(picture->fullSize, canvas.pixelSize()), *picture)};
}

} // namespace mosslantern
