#include "ui/slide/slide_canvas_view.h"

#include "render/canvas.h"
#include "render/export/slide_job.h"
#include "render/pixels/pixels.h"

#include <QtCore/QScopedValueRollback>

#include <chrono>

namespace mosslantern {

namespace {

constexpr std::chrono::milliseconds commitDelay(500);
constexpr double canvasMargin = 30;

} // namespace

SlideCanvasView::SlideCanvasView(QObject *parent)
    : QObject(parent)
{
    m_commitTask.setSingleShot(true);
    m_commitTask.setInterval(commitDelay);
    connect(&m_commitTask, &QTimer::timeout, this, &SlideCanvasView::commit);
}

SlideCanvasView::~SlideCanvasView()
{
    write();
}

void SlideCanvasView::setSlide(Slide *slide)
{
    // The screen lets go of a record that is destroyed.
    if (!slide)
        return;
    Q_ASSERT(!m_slide);
    m_slide = slide;
    m_local = slideValues(*slide);
    m_slideStyle = slide->style();
    emit localTextChanged();
    emit localSubtitleChanged();
    emit localStyleChanged();
    followSlide();
    emit slideChanged();
}

void SlideCanvasView::followSlide()
{
    const auto follow = [this](auto signal, auto update) {
        connect(m_slide, signal, this, [this, update] {
            if (!m_isWriting)
                update();
        });
    };
    follow(&Slide::textChanged, [this] { setLocalText(m_slide->text()); });
    follow(&Slide::subtitleChanged, [this] { setLocalSubtitle(m_slide->subtitle()); });
    follow(&Slide::styleChanged, [this] {
        const SlideStyle before = std::exchange(m_slideStyle, m_slide->style());
        setLocalStyle(withChanges(m_local.style, before, m_slideStyle));
    });
    connect(m_slide, &Record::removed, this, [this] {
        m_slide = nullptr;
        emit slideChanged();
    });
}

void SlideCanvasView::setSlideshow(Slideshow *slideshow)
{
    if (m_slideshow == slideshow)
        return;
    m_slideshow = slideshow;
    fitFrame();
    emit slideshowChanged();
}

QColor SlideCanvasView::boxColor() const
{
    return toColor(m_local.style.boxColor());
}

void SlideCanvasView::setLocalText(const QString &text)
{
    if (std::exchange(m_local.text, text) != text)
        emit localTextChanged();
}

void SlideCanvasView::setLocalSubtitle(const QString &subtitle)
{
    if (std::exchange(m_local.subtitle, subtitle) != subtitle)
        emit localSubtitleChanged();
}

void SlideCanvasView::setLocalStyle(const SlideStyle &style)
{
    if (m_local.style == style)
        return;
    m_local.style = style;
    scheduleCommit();
    emit localStyleChanged();
}

void SlideCanvasView::setLocalTextPos(QPointF position)
{
    SlideStyle style = m_local.style;
    style.setTextPos(position);
    setLocalStyle(style);
}

void SlideCanvasView::setLocalTextScale(double scale)
{
    SlideStyle style = m_local.style;
    style.textScale = scale;
    setLocalStyle(style);
}

void SlideCanvasView::setLocalSubtitlePos(QPointF position)
{
    SlideStyle style = m_local.style;
    style.setSubtitlePos(position);
    setLocalStyle(style);
}

void SlideCanvasView::setLocalSubtitleScale(double scale)
{
    SlideStyle style = m_local.style;
    style.subtitleScale = scale;
    setLocalStyle(style);
}

void SlideCanvasView::setArea(QSizeF area)
{
    if (m_area == area)
        return;
    m_area = area;
    fitFrame();
}

void SlideCanvasView::fitFrame()
{
    const QRectF available =
        QRectF(QPointF(), m_area).adjusted(canvasMargin, canvasMargin, -canvasMargin, -canvasMargin);
    const AspectRatio shape =
        m_slideshow ? m_slideshow->aspectRatio().value_or(AspectRatio::tiktok) : AspectRatio::tiktok;
    m_frame = available.isEmpty() ? QRectF() : fittedCanvas(shape, available);
    emit frameChanged();
}

void SlideCanvasView::commit()
{
    QMetaObject::invokeMethod(this, &SlideCanvasView::write, Qt::QueuedConnection);
}

void SlideCanvasView::scheduleCommit()
{
    m_commitTask.start();
}

void SlideCanvasView::endEditing()
{
    commit();
    QMetaObject::invokeMethod(this, &SlideCanvasView::firstResponderResigned, Qt::QueuedConnection);
}

void SlideCanvasView::write()
{
    if (!m_slide)
        return;
    // The slide announces each field as it is set; it is not to be followed back into the values to come.
    const QScopedValueRollback writing(m_isWriting, true);
    m_slide->setText(m_local.text);
    m_slide->setSubtitle(m_local.subtitle);
    m_slide->setStyle(m_local.style);
    m_slideStyle = m_slide->style();
}

} // namespace mosslantern
