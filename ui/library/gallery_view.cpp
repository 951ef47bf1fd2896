#include "ui/library/gallery_view.h"

#include "model/change.h"
#include "model/console.h"
#include "render/export/bulk_exporter.h"
#include "ui/common/file_panels.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isThere(const QPointer<Slideshow> &slideshow)
{
    return slideshow && slideshow->store();
}

QList<Slideshow *> those(const QList<QPointer<Slideshow>> &presented)
{
    QList<Slideshow *> there;
    for (const QPointer<Slideshow> &slideshow : presented) {
        if (isThere(slideshow))
            there.append(slideshow);
    }
    return there;
}

int slideCount(const QList<Slideshow *> &slideshows)
{
    qsizetype count = 0;
    for (const Slideshow *slideshow : slideshows)
        count += slideshow->slides().size();
    return static_cast<int>(count);
}

} // namespace

GalleryView::GalleryView(QObject *parent)
    : QObject(parent)
{
    connect(&m_exportRun, &ExportRun::isRunningChanged, this, &GalleryView::isExportingChanged);
}

void GalleryView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_slideshows.emplace(context->store(), nullptr, newestFirst<Slideshow>);
    emit contextChanged();
}

QList<BatchGroup> GalleryView::groupedSlideshows() const
{
    if (!m_slideshows)
        return {};
    return mosslantern::groupedSlideshows(m_slideshows->records());
}

BatchGroup GalleryView::group(const QString &name) const
{
    const QList<BatchGroup> groups = groupedSlideshows();
    const auto found = std::ranges::find(groups, name, &BatchGroup::name);
    return found == groups.end() ? BatchGroup{name, {}} : *found;
}

void GalleryView::setSelectedSlideshow(Slideshow *slideshow)
{
    if (m_selectedSlideshow == slideshow)
        return;
    disconnect(m_selectedRemoved);
    m_selectedSlideshow = slideshow;
    if (slideshow) {
        m_selectedRemoved =
            connect(slideshow, &Record::removed, this, [this] { setSelectedSlideshow(nullptr); });
    }
    emit selectedSlideshowChanged();
}

void GalleryView::exportBatch(const QString &name)
{
    exportBatch(group(name));
}

void GalleryView::exportBatch(const BatchGroup &batch)
{
    const FolderRequest request{
        .acceptLabel = tr("Export Batch"),
        .message = tr("Choose a location for the batch export"),
        .suggestedName = u"Export_"_s + batch.name,
    };
    const Presented presented(batch.slideshows.cbegin(), batch.slideshows.cend());
    m_context->filePanels().saveFolder(request, [run = QPointer(&m_exportRun), context = QPointer(m_context),
                                                 presented](const QString &folder) {
        if (context && !folder.isEmpty())
            runExport(run, context, presented, folder);
    });
}

void GalleryView::exportTo(const BatchGroup &batch, const QString &folder)
{
    runExport(&m_exportRun, m_context, {batch.slideshows.cbegin(), batch.slideshows.cend()}, folder);
}

QCoro::Task<> GalleryView::runExport(QPointer<ExportRun> run, QPointer<ScreenContext> context,
                                     Presented presented, QString folder)
{
    const QList<Slideshow *> slideshows = those(presented);
    const Result<> outcome =
        co_await ExportRun::begin(run, context, slideCount(slideshows), [&](BulkExporter &exporter) {
            return exporter.exportSlideshows(slideshows, folder);
        });
    if (!outcome)
        printLine(u"Export failed: "_s + outcome.error().message);
}

void GalleryView::setShowingDeleteBatchAlert(bool isShowing)
{
    change(*this, m_showingDeleteBatchAlert, isShowing, &GalleryView::showingDeleteBatchAlertChanged);
}

std::optional<BatchGroup> GalleryView::batchToDelete() const
{
    if (!m_batchToDelete)
        return {};
    return BatchGroup{m_batchToDelete->name, those(m_batchToDelete->slideshows)};
}

QString GalleryView::nameOfBatchToDelete() const
{
    return m_batchToDelete ? m_batchToDelete->name : QString();
}

int GalleryView::sizeOfBatchToDelete() const
{
    return m_batchToDelete ? static_cast<int>(m_batchToDelete->slideshows.size()) : 0;
}

void GalleryView::askToDeleteBatch(const QString &name)
{
    const BatchGroup batch = group(name);
    m_batchToDelete = {batch.name, {batch.slideshows.cbegin(), batch.slideshows.cend()}};
    emit batchToDeleteChanged();
    setShowingDeleteBatchAlert(true);
}

void GalleryView::confirmDeletion()
{
    setShowingDeleteBatchAlert(false);
    if (const auto batch = batchToDelete())
        deleteBatch(*batch);
}

void GalleryView::deleteBatch(const BatchGroup &batch)
{
    emit batchWillBeDeleted();
    for (Slideshow *slideshow : batch.slideshows)
        m_context->store().remove(slideshow);
}

void GalleryView::deleteSlideshow(Slideshow *slideshow)
{
    if (slideshow && slideshow->store())
        m_context->store().remove(slideshow);
}

} // namespace mosslantern
