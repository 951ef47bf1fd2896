#include "ui/slide/canvas_background.h"

namespace mosslantern {

CanvasBackground::CanvasBackground(QQuickItem *parent)
    : PictureBackground(parent)
{}

void CanvasBackground::setSlide(Slide *slide)
{
    if (m_slide == slide)
        return;
    if (m_slide)
        m_slide->disconnect(this);
    m_slide = slide;
    if (slide)
        connect(slide, &Slide::imageURLChanged, this, &CanvasBackground::redraw);
    redraw();
    emit slideChanged();
}

QString CanvasBackground::picturePath() const
{
    return m_slide ? m_slide->imageURL().toLocalFile() : QString();
}

RgbaColor CanvasBackground::noPicture() const
{
    return noPictureColor;
}

} // namespace mosslantern
