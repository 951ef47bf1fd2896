#pragma once

#include "model/slideshow.h"
#include "render/slide_values.h"

#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtCore/QRectF>
#include <QtCore/QTimer>
#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// The editable slide: texts, positions and scales as they are being edited, written into the slide in
/// batches.
class SlideCanvasView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::Slide *slide READ slide WRITE setSlide NOTIFY slideChanged REQUIRED)
    Q_PROPERTY(
        mosslantern::Slideshow *slideshow READ slideshow WRITE setSlideshow NOTIFY slideshowChanged REQUIRED)
    Q_PROPERTY(QString localText READ localText WRITE setLocalText NOTIFY localTextChanged)
    Q_PROPERTY(QString localSubtitle READ localSubtitle WRITE setLocalSubtitle NOTIFY localSubtitleChanged)
    Q_PROPERTY(QPointF localTextPos READ localTextPos WRITE setLocalTextPos NOTIFY localStyleChanged)
    Q_PROPERTY(double localTextScale READ localTextScale WRITE setLocalTextScale NOTIFY localStyleChanged)
    Q_PROPERTY(
        QPointF localSubtitlePos READ localSubtitlePos WRITE setLocalSubtitlePos NOTIFY localStyleChanged)
    Q_PROPERTY(double localSubtitleScale READ localSubtitleScale WRITE setLocalSubtitleScale NOTIFY
                   localStyleChanged)
    /// Where there is room for the canvas, in points.
    Q_PROPERTY(QSizeF area READ area WRITE setArea NOTIFY frameChanged)
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged)
    Q_PROPERTY(int textStyle READ textStyle NOTIFY localStyleChanged)
    Q_PROPERTY(QColor boxColor READ boxColor NOTIFY localStyleChanged)

public:
    explicit SlideCanvasView(QObject *parent = nullptr);

    /// Writes what is not written yet.
    ~SlideCanvasView() override;

    /// Once; the local state starts from its values. Null once the slide is removed.
    Slide *slide() const { return m_slide; }
    void setSlide(Slide *slide);

    Slideshow *slideshow() const { return m_slideshow; }
    void setSlideshow(Slideshow *slideshow);

    QString localText() const { return m_local.text; }
    void setLocalText(const QString &text);

    QString localSubtitle() const { return m_local.subtitle; }
    void setLocalSubtitle(const QString &subtitle);

    QPointF localTextPos() const { return m_local.style.textPos(); }
    void setLocalTextPos(QPointF position);

    double localTextScale() const { return m_local.style.textScale; }
    void setLocalTextScale(double scale);

    QPointF localSubtitlePos() const { return m_local.style.subtitlePos(); }
    void setLocalSubtitlePos(QPointF position);

    double localSubtitleScale() const { return m_local.style.subtitleScale; }
    void setLocalSubtitleScale(double scale);

    /// The delayed commit, while it is active.
    const QTimer &commitTask() const { return m_commitTask; }

    QSizeF area() const { return m_area; }
    void setArea(QSizeF area);

    /// Where the canvas stands in the area, in points: in its centre, 30 points or more from every side.
    QRectF frame() const { return m_frame; }

    /// Writes the local values that differ into the slide, as soon as control returns to the event loop.
    Q_INVOKABLE void commit();

    /// The same at once, for what is about to work on the slide.
    Q_INVOKABLE void write();

    /// Commits half a second after the last call.
    void scheduleCommit();

    /// Commits, and then lets the keyboard go.
    Q_INVOKABLE void endEditing();

signals:
    void slideChanged();
    void slideshowChanged();
    void localTextChanged();
    void localSubtitleChanged();
    void localStyleChanged();
    void frameChanged();

    /// Nothing on the canvas is to have the keyboard any more.
    void firstResponderResigned();

private:
    int textStyle() const { return static_cast<int>(m_local.style.textStyle); }
    QColor boxColor() const;
    void followSlide();
    void setLocalStyle(const SlideStyle &style);
    void fitFrame();

    QPointer<Slide> m_slide;
    QPointer<Slideshow> m_slideshow;
    SlideValues m_local;
    SlideStyle m_slideStyle; // as it was when it was last read
    QSizeF m_area;
    QRectF m_frame;
    QTimer m_commitTask;
    bool m_isWriting = false;
};

} // namespace mosslantern
