#include "ui/slide/live_slide_thumbnail.h"

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

StaticSlide::Content LiveSlideThumbnail::content() const
{
    return {.values = m_values,
            .picturePath = m_asset ? m_asset->fileURL().toLocalFile() : QString(),
            .noPicture = noAssetColor,
            .preloadedPicture = {}};
}

} // namespace mosslantern
