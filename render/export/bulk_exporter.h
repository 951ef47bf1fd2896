#pragma once

#include "render/export/batch_index.h"
#include "render/export/folder_names.h"
#include "render/export/slide_destination.h"

#include <QCoroTask>
#include <QtCore/QObject>

#include <optional>

namespace mosslantern {

class Slideshow;

/// A slideshow that is in no library.
struct JobsOfSlideshow
{
    std::vector<SlideJob> slides;
    QString caption = {}; // empty for none
};

/// Writes slideshows as folders of pictures, "Slide_1.png" and so on, with "caption.txt" where there is one
/// (beside a film, called like it). Everything that touches records, fonts
/// and files runs on the thread that calls; only drawing and compressing uses all cores.
class BulkExporter : public QObject
{
    Q_OBJECT

public:
    /// Opens a folder in the platform's file browser.
    using FolderOpener = std::function<void(const QString &)>;

    /// `openFolder` is called after a finished export; it may be empty.
    explicit BulkExporter(FolderOpener openFolder, int threads = QThread::idealThreadCount());

    /// How slides are written from now on; PNG files of the usual size without it. Jobs say themselves how
    /// they are drawn. A slideshow that the options do not take is left out, and fileLeftOut() tells so; of a
    /// single export that is the error.
    void setOptions(const ExportOptions &options) { m_options = options; }

    /// Whether a batch export writes an index of it into its folder, "index.csv".
    void setWritesIndex(bool writes)
    {
        m_indexes = writes ? std::optional<BatchIndexes>(std::in_place) : std::nullopt;
    }

    /// Where the files go from now on; folders of the system without it. Must outlive the exports.
    void setDestination(SlideDestination &destination) { m_destination = &destination; }

    /// The batch export: for each slideshow, the folder `base` / batch name ("Unknown Batch" without one, "/"
    /// as "-") / "Slideshow_" + its place in the list, with its slides by ascending order. Suspends before
    /// each slideshow, so that the event loop runs; one that is removed meanwhile is left out. Fails with the
    /// first folder that cannot be made; what is written stays. A file that cannot be written is left out,
    /// which only fileLeftOut() tells.
    QCoro::Task<Result<>> exportSlideshows(QList<Slideshow *> slideshows, QString base);

    /// The single export: the slides as they are now, in their stored order, straight into `folder`. Suspends
    /// before each of them; the slideshow may go meanwhile. At the first folder or file that cannot be
    /// written, prints "Failed to export: " and the reason, and stops.
    QCoro::Task<Result<>> exportSlideshow(const Slideshow &slideshow, const QString &folder);

    /// Writes the slides of one slideshow, by ascending order, and its caption into a folder that exists.
    void writeSlideImages(const Slideshow &slideshow, const QString &folder);

    /// The batch export of slides that are in no library: a folder of its own for each slideshow, as above,
    /// and all in `folder`. Asks before each slide whether to go on.
    Result<> exportJobs(const std::vector<JobsOfSlideshow> &slideshows, const QString &folder,
                        const std::function<bool()> &goesOn);

signals:
    /// Slides written so far by the running export, slides left out, and slides in all.
    void progressed(int written, int leftOut, int total);

    /// The file of a slide stands on the placeholder, because its picture could not be read.
    void pictureMissing(const QString &file, const QString &reason);

    /// A batch export has left out the file of a slide.
    void fileLeftOut(const QString &reason);

private:
    QCoro::Task<Result<>> writeInTurn(Result<std::vector<SlideJob>> jobs, QString caption, QString folder);
    Result<std::vector<SlideJob>> jobsOf(const Slideshow &slideshow, QList<Slide *> slides,
                                         const QString &folder);
    Result<> prepare(const QString &folder);
    Result<> writeFilm(const std::vector<SlideJob> &jobs, const QString &folder);
    void begin(int total);
    void writeSlides(const std::vector<SlideJob> &jobs, const QString &folder,
                     const std::function<bool()> &goesOn);
    Result<> writeSlide(const QString &file, const EncodedSlide &slide);
    Result<> finishBatches();
    Result<> writeCaption(const QString &caption, const QString &folder);

    FolderOpener m_openFolder;
    ExportOptions m_options;
    std::optional<BatchIndexes> m_indexes; // of the running export, when they are wanted
    FolderDestination m_folders;
    SlideDestination *m_destination = &m_folders;
    SlideRenderer m_renderer;
    int m_written = 0;
    int m_leftOut = 0;
    int m_total = 0;
};

} // namespace mosslantern
