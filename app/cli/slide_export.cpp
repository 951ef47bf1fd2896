#include "app/cli/slide_export.h"

#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "model/slideshow.h"
#include "render/export/bulk_exporter.h"

#include <QtCore/QDir>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// An exporter that reports what it leaves out; that makes `status` 1.
std::unique_ptr<BulkExporter> reportingExporter(Progress &progress, int &status)
{
    auto exporter = std::make_unique<BulkExporter>(BulkExporter::FolderOpener());
    QObject::connect(exporter.get(), &BulkExporter::progressed, exporter.get(),
                     [&](int done, int total) { progress.show(done, total); });
    QObject::connect(exporter.get(), &BulkExporter::pictureMissing, exporter.get(),
                     [](const QString &file, const QString &reason) {
                         report(u"“%1” is drawn without its picture: %2"_s.arg(file, reason));
                     });
    QObject::connect(exporter.get(), &BulkExporter::fileLeftOut, exporter.get(),
                     [&](const QString &reason) { status = failedWith({reason}); });
    return exporter;
}

QString absolute(const QString &folder)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(folder));
}

} // namespace

int exportBatch(const QList<Slideshow *> &slideshows, const QString &folder, const Interruption &interruption)
{
    int status = done;
    Result<> exported;
    {
        Progress progress(u"slides"_s);
        auto exporter = reportingExporter(progress, status);
        // An exporter that goes away while it waits gives up.
        QObject::connect(&interruption, &Interruption::requested, exporter.get(), [&] { exporter.reset(); });
        exported = QCoro::waitFor(exporter->exportSlideshows(slideshows, absolute(folder)));
    }
    if (interruption.isRequested())
        return failed;
    if (!exported)
        return failedWith(exported.error());
    writeRow({absolute(folder) + u'/' + batchFolderName(slideshows.first()->batchName())});
    return status;
}

int exportSingle(const Slideshow &slideshow, const QString &folder)
{
    int status = done;
    Result<> exported;
    {
        Progress progress(u"slides"_s);
        exported =
            QCoro::waitFor(reportingExporter(progress, status)->exportSlideshow(slideshow, absolute(folder)));
    }
    if (!exported)
        return failedWith(exported.error());
    writeRow({absolute(folder)});
    return status;
}

} // namespace mosslantern
