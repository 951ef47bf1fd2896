#include "ui/editor/slideshow_detail_view.h"

#include "render/export/bulk_exporter.h"
#include "ui/common/file_panels.h"

namespace mosslantern {

SlideshowDetailView::SlideshowDetailView(QObject *parent)
    : QObject(parent)
    , m_clock([] { return QDateTime::currentDateTime(); })
{}

void SlideshowDetailView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_inspector = std::make_unique<SlideInspectorView>(context->store());
    emit contextChanged();
    if (m_slideshow)
        showSelection();
}

void SlideshowDetailView::setSlideshow(Slideshow *slideshow)
{
    // The screen lets go of a record that is destroyed.
    if (!slideshow)
        return;
    Q_ASSERT(!m_slideshow);
    m_slideshow = slideshow;
    slideshow->repairSlideOrder();
    connect(slideshow, &Slideshow::slidesChanged, this, &SlideshowDetailView::followSlides);
    connect(slideshow, &Record::removed, this, [this] {
        m_slideshow = nullptr;
        followSlides();
        emit slideshowChanged();
    });
    followSlides();
    emit slideshowChanged();
}

QList<Slide *> SlideshowDetailView::slides() const
{
    return m_slideshow ? m_slideshow->slidesInOrder() : QList<Slide *>();
}

QVariantList SlideshowDetailView::slideList() const
{
    QVariantList list;
    for (Slide *slide : slides())
        list.append(QVariant::fromValue(slide));
    return list;
}

Slide *SlideshowDetailView::selectedSlide() const
{
    return slides().value(m_selectedSlideIndex);
}

void SlideshowDetailView::followSlides()
{
    for (Slide *slide : slides())
        connect(slide, &Slide::orderChanged, this, &SlideshowDetailView::followSlides, Qt::UniqueConnection);
    emit slidesChanged();
    showSelection();
}

void SlideshowDetailView::showSelection()
{
    if (!m_inspector)
        return;
    if (m_slideshow && !m_inspector->slideshow()) {
        m_inspector->setSlideshow(m_slideshow);
        if (!m_slideshow->slides().isEmpty())
            m_inspector->showBoxColor(m_slideshow->slides().constFirst()->style().boxColor());
    }
    Slide *const slide = selectedSlide();
    if (slide && slide == m_shownSlide)
        return;
    m_shownSlide = slide;
    m_inspector->setSlide(slide);
    emit selectedSlideChanged();
}

void SlideshowDetailView::select(int index)
{
    Slide *const slide = slides().value(index);
    if (!slide)
        return;
    if (m_selectedSlideIndex != index) {
        m_selectedSlideIndex = index;
        emit selectedSlideIndexChanged();
    }
    showSelection();
    m_inspector->showBoxColor(slide->style().boxColor());
}

void SlideshowDetailView::exportSlideshow()
{
    const FolderRequest request{
        .acceptLabel = tr("Export"),
        .message = tr("Choose a folder name and location for exported slides"),
        .suggestedName = suggestedFolderName(m_clock()),
    };
    m_context->filePanels().saveFolder(request, [self = QPointer(this)](const QString &folder) {
        if (self && !folder.isEmpty())
            self->exportTo(folder);
    });
}

void SlideshowDetailView::exportTo(const QString &folder)
{
    if (!m_slideshow || m_exportRun.isRunning())
        return;
    // What goes wrong is on the console.
    ExportRun::begin(&m_exportRun, m_context, static_cast<int>(m_slideshow->slides().size()),
                     [slideshow = QPointer(m_slideshow), folder](BulkExporter &exporter) {
                         return exporter.exportSlideshow(*slideshow, folder);
                     });
}

} // namespace mosslantern
