#include "ui/editor/slideshow_detail_view.h"

#include "ui/common/file_panels.h"

#include <QtCore/QCoreApplication>

namespace mosslantern {

SlideshowDetailView::SlideshowDetailView(QObject *parent)
    : QObject(parent)
    , m_clock(&QDateTime::currentDateTime)
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
            m_inspector->showBoxColor(colorFromHex(m_slideshow->slides().constFirst()->boxColorHex()));
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
    m_inspector->showBoxColor(colorFromHex(slide->boxColorHex()));
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
    if (!m_slideshow || m_isExporting)
        return;
    // The events that run in between may end this screen.
    const QPointer<SlideshowDetailView> self(this);
    BulkExporter exporter([context = QPointer(m_context)](const QString &path) {
        if (context)
            context->filePanels().openFolder(path);
    });
    connect(&exporter, &BulkExporter::progressed, this, [this](int done, int) {
        m_exportedSlides = done;
        emit exportProgressed();
        // The screen is disabled, but shows how far the export is; what the user clicks meanwhile is lost.
        QCoreApplication::processEvents();
    });
    m_isExporting = true;
    m_exportedSlides = 0;
    emit exportProgressed();
    QCoreApplication::processEvents();
    if (!self)
        return;
    // What went wrong is on the console; there is no alert.
    if (m_slideshow)
        static_cast<void>(exporter.exportSlideshow(*m_slideshow, folder));
    if (!self)
        return;
    m_isExporting = false;
    emit exportProgressed();
}

} // namespace mosslantern
