#include "ui/slide/slide_preview_view.h"

#include "render/export/slide_job.h"

namespace mosslantern {

SlidePreviewView::SlidePreviewView(QQuickItem *parent)
    : StaticSlide(parent)
{}

void SlidePreviewView::setSlide(Slide *slide)
{
    if (m_slide == slide)
        return;
    if (m_slide)
        m_slide->disconnect(this);
    m_slide = slide;
    if (slide)
        connect(slide, &Record::changed, this, &SlidePreviewView::redraw);
    redraw();
    emit slideChanged();
}

void SlidePreviewView::setAspectRatio(const QVariant &aspectRatio)
{
    const AspectRatio shape = aspectRatioFromVariant(aspectRatio);
    if (m_aspectRatio == shape)
        return;
    m_aspectRatio = shape;
    redraw();
    emit aspectRatioChanged();
    emit canvasShapeChanged();
}

void SlidePreviewView::setPreloadedImage(const QImage &image)
{
    m_preloadedImage = image;
    redraw();
    emit preloadedImageChanged();
}

StaticSlide::Content SlidePreviewView::content() const
{
    if (!m_slide)
        return {.values = {}, .picturePath = {}, .noPicture = noPictureColor, .preloadedPicture = {}};
    return {.values = slideValues(*m_slide),
            .picturePath = m_slide->imageURL().toLocalFile(),
            .noPicture = noPictureColor,
            .preloadedPicture = m_preloadedImage};
}

} // namespace mosslantern
