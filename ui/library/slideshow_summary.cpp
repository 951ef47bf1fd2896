#include "ui/library/slideshow_summary.h"

namespace mosslantern {

void SlideshowSummary::setSlideshow(Slideshow *slideshow)
{
    if (m_slideshow == slideshow)
        return;
    if (m_slideshow)
        m_slideshow->disconnect(this);
    m_slideshow = slideshow;
    if (slideshow)
        connect(slideshow, &Slideshow::slidesChanged, this, &SlideshowSummary::slidesChanged);
    emit slideshowChanged();
    emit slidesChanged();
}

int SlideshowSummary::slideCount() const
{
    return m_slideshow ? static_cast<int>(m_slideshow->slides().size()) : 0;
}

Slide *SlideshowSummary::firstSlide() const
{
    return m_slideshow ? m_slideshow->slides().value(0) : nullptr;
}

AspectRatio SlideshowSummary::shape() const
{
    return m_slideshow ? m_slideshow->aspectRatio().value_or(AspectRatio::tiktok) : AspectRatio::tiktok;
}

} // namespace mosslantern
