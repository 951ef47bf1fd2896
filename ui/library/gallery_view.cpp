#include "ui/library/gallery_view.h"

#include "model/console.h"
#include "render/export/bulk_exporter.h"
#include "ui/common/file_panels.h"

#include <chrono>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Long enough to look up from something else and read a line.
constexpr std::chrono::seconds outcomeTime(8);

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
    m_outcome.setSingleShot(true);
    connect(&m_outcome, &QTimer::timeout, this, &GalleryView::forgetOutcome);
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
    m_context->filePanels().saveFolder(
        request, [self = QPointer(this), context = QPointer(m_context), presented](const QString &folder) {
            if (context && !folder.isEmpty())
                runExport(self, context, presented, folder);
        });
}

void GalleryView::exportTo(const BatchGroup &batch, const QString &folder)
{
    runExport(this, m_context, {batch.slideshows.cbegin(), batch.slideshows.cend()}, folder);
}

QCoro::Task<> GalleryView::runExport(QPointer<GalleryView> self, QPointer<ScreenContext> context,
                                     Presented presented, QString folder)
{
    const RunningWork::Piece piece(context->work(), RunningWork::Kind::exporting);
    const QList<Slideshow *> slideshows = those(presented);
    BulkExporter exporter([context](const QString &path) {
        if (context)
            context->filePanels().openFolder(path);
    });
    int expected = slideCount(slideshows);
    int writtenBefore = 0;
    int leftOutBefore = 0;
    connect(&exporter, &BulkExporter::progressed, &exporter, [&](int written, int leftOut, int total) {
        if (self)
            self->noteProgress(written - writtenBefore, leftOut - leftOutBefore, total - expected);
        writtenBefore = written;
        leftOutBefore = leftOut;
        expected = total;
    });
    if (self)
        self->beginExport(expected);
    // The export goes on when the screen is left.
    const Result<> outcome = co_await exporter.exportSlideshows(slideshows, folder);
    if (!outcome)
        printLine(u"Export failed: "_s + outcome.error().message);
    if (self)
        self->endExport();
}

void GalleryView::beginExport(int slides)
{
    if (isTellingOutcome())
        forgetOutcome();
    ++m_runningExports;
    noteProgress(0, 0, slides);
    setIsExporting(true);
}

void GalleryView::noteProgress(int done, int leftOut, int more)
{
    m_exportedSlides += done;
    m_slidesLeftOut += leftOut;
    m_slidesToExport += more;
    emit exportProgressed();
}

void GalleryView::endExport()
{
    --m_runningExports;
    if (m_runningExports == 0 && m_slidesLeftOut > 0) {
        m_outcome.start(outcomeTime);
        emit isTellingOutcomeChanged();
    } else if (m_runningExports == 0) {
        noteProgress(-m_exportedSlides, 0, -m_slidesToExport);
    }
    setIsExporting(false);
}

void GalleryView::forgetOutcome()
{
    m_outcome.stop();
    noteProgress(-m_exportedSlides, -m_slidesLeftOut, -m_slidesToExport);
    emit isTellingOutcomeChanged();
}

void GalleryView::setIsExporting(bool isExporting)
{
    if (m_isExporting == isExporting)
        return;
    m_isExporting = isExporting;
    emit isExportingChanged();
}

void GalleryView::setShowingDeleteBatchAlert(bool isShowing)
{
    if (m_showingDeleteBatchAlert == isShowing)
        return;
    m_showingDeleteBatchAlert = isShowing;
    emit showingDeleteBatchAlertChanged();
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
