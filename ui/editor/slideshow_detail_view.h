#pragma once

#include "ui/editor/slide_inspector_view.h"
#include "ui/slide/export_run.h"

#include <functional>
#include <memory>

namespace mosslantern {

/// The editor of one slideshow: its slides, which of them is selected, and the export.
class SlideshowDetailView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(
        mosslantern::Slideshow *slideshow READ slideshow WRITE setSlideshow NOTIFY slideshowChanged REQUIRED)
    /// In the order in which they are shown.
    Q_PROPERTY(QVariantList slides READ slideList NOTIFY slidesChanged)
    Q_PROPERTY(int selectedSlideIndex READ selectedSlideIndex NOTIFY selectedSlideIndexChanged)
    /// Null when the index is that of no slide.
    Q_PROPERTY(mosslantern::Slide *selectedSlide READ selectedSlide NOTIFY selectedSlideChanged)
    Q_PROPERTY(mosslantern::SlideInspectorView *inspector READ inspector NOTIFY contextChanged)
    Q_PROPERTY(mosslantern::ExportRun *exportRun READ exportRun CONSTANT)

public:
    explicit SlideshowDetailView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    /// Once, before the slideshow.
    void setContext(ScreenContext *context);

    /// Null once it is removed.
    Slideshow *slideshow() const { return m_slideshow; }
    /// Once; the screen appears with it: missing places of slides are given, and the pickers show the colour
    /// of the first slide as stored.
    void setSlideshow(Slideshow *slideshow);

    QList<Slide *> slides() const;

    int selectedSlideIndex() const { return m_selectedSlideIndex; }
    Slide *selectedSlide() const;

    /// The colour that the inspector's pickers show.
    RgbaColor boxColor() const { return m_inspector->boxColor(); }

    SlideInspectorView *inspector() const { return m_inspector.get(); }

    /// Selects the slide at a place in the list.
    Q_INVOKABLE void select(int index);

    /// Asks for a folder and writes the slides into it, in their stored order. The window goes on between two
    /// of them; the export does, too, when the screen is left or the slideshow removed.
    Q_INVOKABLE void exportSlideshow();

    ExportRun *exportRun() { return &m_exportRun; }

    /// The time that the proposed folder is named after; the system's unless it is replaced.
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }

signals:
    void contextChanged();
    void slideshowChanged();
    void slidesChanged();
    void selectedSlideIndexChanged();
    void selectedSlideChanged();

private:
    QVariantList slideList() const;
    void followSlides();
    void showSelection();
    void exportTo(const QString &folder);

    ScreenContext *m_context = nullptr;
    QPointer<Slideshow> m_slideshow;
    std::unique_ptr<SlideInspectorView> m_inspector;
    int m_selectedSlideIndex = 0;
    QPointer<Slide> m_shownSlide;
    ExportRun m_exportRun;
    std::function<QDateTime()> m_clock;
};

} // namespace mosslantern
