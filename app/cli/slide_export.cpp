#include "app/cli/slide_export.h"

#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "model/slideshow.h"
#include "render/export/pdf_documents.h"
#include "render/export/slide_archive.h"

#include <QtCore/QDir>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// An export that reports what it leaves out and shows how far it is.
class ReportedExport
{
public:
    ReportedExport()
        : m_exporter(std::make_unique<BulkExporter>(BulkExporter::FolderOpener()))
    {
        QObject::connect(m_exporter.get(), &BulkExporter::progressed, m_exporter.get(),
                         [this](int written, int leftOut, int total) {
                             m_written = written;
                             m_total = total;
                             m_progress->show(written + leftOut, total);
                         });
        QObject::connect(m_exporter.get(), &BulkExporter::pictureMissing, m_exporter.get(),
                         [this](const QString &file, const QString &reason) {
                             ++m_withoutPicture;
                             report(u"“%1” is drawn without its picture: %2"_s.arg(file, reason));
                         });
        QObject::connect(m_exporter.get(), &BulkExporter::fileLeftOut, m_exporter.get(),
                         [](const QString &reason) { report(reason); });
    }

    BulkExporter *exporter() const { return m_exporter.get(); }

    /// An exporter that goes away while it waits gives up.
    void giveUp() { m_exporter.reset(); }

    /// Tells why it ended early, if it did, and what was left out, beside what the command left out before.
    /// Gives the exit status.
    int finish(const Result<> &exported, LeftOut leftOut = {})
    {
        m_progress.reset();
        if (!exported)
            report(exported.error().message);
        leftOut.note(m_total - m_written, m_total, u"slides were not written"_s);
        leftOut.note(m_withoutPicture, m_total, u"slides were drawn without their picture"_s);
        return std::max<int>(leftOut.report(), exported ? done : failed);
    }

private:
    std::optional<Progress> m_progress = std::optional<Progress>(std::in_place, u"slides"_s);
    std::unique_ptr<BulkExporter> m_exporter;
    int m_written = 0;
    int m_withoutPicture = 0;
    int m_total = 0;
};

QString absolute(const QString &folder)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(folder));
}

/// What is behind the name of a folder that is but one file.
QString endingOfOne(const ExportTarget &target)
{
    if (target.options.film)
        return u'.' + rawText(target.options.film->format);
    return target.isDocument ? u".pdf"_s : QString();
}

/// Exports to the folder `root`, or to the file that stands for it, and prints which. `work` does it, without
/// an interruption for a single slideshow.
int exportTo(const QString &root, const ExportTarget &target, const Interruption *interruption,
             const LeftOut &leftOut, const std::function<Result<>(ReportedExport &)> &work)
{
    std::unique_ptr<SlideArchive> archive;
    ReportedExport run;
    run.exporter()->setOptions(target.options);
    run.exporter()->setWritesIndex(target.hasIndex);
    if (target.isArchive) {
        auto created = SlideArchive::create(root);
        if (!created)
            return run.finish(std::unexpected(created.error()), leftOut);
        archive = std::move(*created);
    }
    FolderDestination folders;
    SlideDestination &files = archive ? static_cast<SlideDestination &>(*archive) : folders;
    PdfDocuments documents(files);
    run.exporter()->setDestination(target.isDocument ? static_cast<SlideDestination &>(documents) : files);
    const Result<> exported = work(run);
    if (interruption && interruption->isRequested())
        return failed;
    const int status = run.finish(exported, leftOut);
    if (exported)
        writeRow({archive ? archive->path() : interruption ? root : root + endingOfOne(target)});
    return status;
}

} // namespace

int exportBatch(const QList<Slideshow *> &slideshows, const QString &folder, const ExportTarget &target,
                const Interruption &interruption)
{
    const QString root = absolute(folder) + u'/' + batchFolderName(slideshows.first()->batchName());
    return exportTo(root, target, &interruption, {}, [&](ReportedExport &run) {
        QObject::connect(&interruption, &Interruption::requested, run.exporter(), [&run] { run.giveUp(); });
        return QCoro::waitFor(run.exporter()->exportSlideshows(slideshows, absolute(folder)));
    });
}

int exportSingle(const Slideshow &slideshow, const QString &folder, const ExportTarget &target)
{
    return exportTo(absolute(folder), target, nullptr, {}, [&](ReportedExport &run) {
        return QCoro::waitFor(run.exporter()->exportSlideshow(slideshow, absolute(folder)));
    });
}

int exportJobs(const std::vector<JobsOfSlideshow> &slideshows, const QString &folder,
               const ExportTarget &target, const LeftOut &leftOut, const Interruption &interruption)
{
    return exportTo(absolute(folder), target, &interruption, leftOut, [&](ReportedExport &run) {
        return run.exporter()->exportJobs(slideshows, absolute(folder),
                                          [&] { return !interruption.isRequested(); });
    });
}

} // namespace mosslantern
