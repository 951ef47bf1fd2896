#include "ui/editor/slide_canvas_view.h"

#include "model/rgba_color.h"
#include "render/canvas.h"
#include "render/pixels/pixels.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>

namespace mosslantern {

namespace {

constexpr std::chrono::nanoseconds commitDelay{500'000'000};
constexpr double canvasMargin = 30;

void callAfter(std::chrono::nanoseconds delay, QObject *context, const std::function<void()> &call)
{
    QTimer::singleShot(std::chrono::duration_cast<std::chrono::milliseconds>(delay), context, call);
}

} // namespace

SlideCanvasView::SlideCanvasView(QObject *parent)
    : QObject(parent)
    , m_callLater(callAfter)
{}

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
    m_local = {.text = slide->text(),
               .subtitle = slide->subtitle(),
               .textPos = {slide->textX(), slide->textY()},
               .textScale = slide->textScale(),
               .subtitlePos = {slide->subtitleX(), slide->subtitleY()},
               .subtitleScale = slide->subtitleScale()};
    emit localTextChanged();
    emit localSubtitleChanged();
    emit localTextPosChanged();
    emit localTextScaleChanged();
    emit localSubtitlePosChanged();
    emit localSubtitleScaleChanged();
    followSlide();
    emit slideChanged();
    emit styleChanged();
    connect(this, &SlideCanvasView::localTextPosChanged, this, &SlideCanvasView::scheduleCommit);
    connect(this, &SlideCanvasView::localTextScaleChanged, this, &SlideCanvasView::scheduleCommit);
    connect(this, &SlideCanvasView::localSubtitlePosChanged, this, &SlideCanvasView::scheduleCommit);
    connect(this, &SlideCanvasView::localSubtitleScaleChanged, this, &SlideCanvasView::scheduleCommit);
}

void SlideCanvasView::followSlide()
{
    const auto follow = [this](auto signal, auto update) {
        connect(m_slide, signal, this, [this, update] {
            if (!m_isWriting)
                update();
        });
    };
    const auto takeTextPos = [this] { setLocalTextPos({m_slide->textX(), m_slide->textY()}); };
    const auto takeSubtitlePos = [this] {
        setLocalSubtitlePos({m_slide->subtitleX(), m_slide->subtitleY()});
    };
    follow(&Slide::textChanged, [this] { setLocalText(m_slide->text()); });
    follow(&Slide::subtitleChanged, [this] { setLocalSubtitle(m_slide->subtitle()); });
    follow(&Slide::textXChanged, takeTextPos);
    follow(&Slide::textYChanged, takeTextPos);
    follow(&Slide::textScaleChanged, [this] { setLocalTextScale(m_slide->textScale()); });
    follow(&Slide::subtitleXChanged, takeSubtitlePos);
    follow(&Slide::subtitleYChanged, takeSubtitlePos);
    follow(&Slide::subtitleScaleChanged, [this] { setLocalSubtitleScale(m_slide->subtitleScale()); });
    connect(m_slide, &Slide::textStyleChanged, this, &SlideCanvasView::styleChanged);
    connect(m_slide, &Slide::boxColorHexChanged, this, &SlideCanvasView::styleChanged);
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

int SlideCanvasView::textStyle() const
{
    return static_cast<int>(m_slide ? m_slide->textStyle() : TextStyle::classic);
}

QColor SlideCanvasView::boxColor() const
{
    return m_slide ? toColor(colorFromHex(m_slide->boxColorHex())) : QColor();
}

void SlideCanvasView::setLocalText(const QString &text)
{
    set(&LocalState::text, text, &SlideCanvasView::localTextChanged);
}

void SlideCanvasView::setLocalSubtitle(const QString &subtitle)
{
    set(&LocalState::subtitle, subtitle, &SlideCanvasView::localSubtitleChanged);
}

void SlideCanvasView::setLocalTextPos(QPointF position)
{
    set(&LocalState::textPos, position, &SlideCanvasView::localTextPosChanged);
}

void SlideCanvasView::setLocalTextScale(double scale)
{
    set(&LocalState::textScale, scale, &SlideCanvasView::localTextScaleChanged);
}

void SlideCanvasView::setLocalSubtitlePos(QPointF position)
{
    set(&LocalState::subtitlePos, position, &SlideCanvasView::localSubtitlePosChanged);
}

void SlideCanvasView::setLocalSubtitleScale(double scale)
{
    set(&LocalState::subtitleScale, scale, &SlideCanvasView::localSubtitleScaleChanged);
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
    if (m_commitTask)
        m_commitTask->isCancelled = true;
    m_commitTask = std::make_shared<CommitTask>();
    m_callLater(commitDelay, this, [this, task = m_commitTask] {
        if (!task->isCancelled)
            commit();
    });
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
    m_slide->setTextX(m_local.textPos.x());
    m_slide->setTextY(m_local.textPos.y());
    m_slide->setTextScale(m_local.textScale);
    m_slide->setSubtitleX(m_local.subtitlePos.x());
    m_slide->setSubtitleY(m_local.subtitlePos.y());
    m_slide->setSubtitleScale(m_local.subtitleScale);
}

} // namespace mosslantern
