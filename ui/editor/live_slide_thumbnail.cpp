#include "ui/editor/live_slide_thumbnail.h"

#include "render/pixels/pixels.h"
#include "ui/editor/colors.h"

namespace mosslantern {

namespace {

constexpr RgbaColor noAssetColor{noPictureColor.red, noPictureColor.green, noPictureColor.blue, 0.3};

} // namespace

LiveSlideThumbnail::LiveSlideThumbnail(QQuickItem *parent)
    : StaticSlide(parent)
{}

void LiveSlideThumbnail::setAspectRatio(const QVariant &ratio)
{
    set(m_aspectRatio, aspectRatioFromVariant(ratio));
    emit canvasShapeChanged();
}

QColor LiveSlideThumbnail::boxColor() const
{
    return toColor(m_values.boxColor);
}

void LiveSlideThumbnail::setBoxColor(const QColor &color)
{
    set(m_values.boxColor, toRgbaColor(color));
}

StaticSlide::Content LiveSlideThumbnail::content() const
{
    return {.values = m_values,
            .picturePath = m_asset ? m_asset->fileURL().toLocalFile() : QString(),
            .noPicture = noAssetColor,
            .preloadedPicture = {}};
}

} // namespace mosslantern
