#include "app/cli/batch_generation.h"
#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "app/cli/slide_export.h"
#include "content/batch_name.h"
#include "content/slideshow_maker.h"
#include "render/export/bulk_exporter.h"
#include "render/picture/decoding_stop.h"
#include "render/picture/picture_files.h"
#include "render/picture/picture_loader.h"

#include <QtCore/QDir>

#include <random>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Costs the least to decode.
constexpr PictureRequest smallest{.cover = {1, 1}};

/// Draws pictures by lot. One that cannot be read is reported, and another drawn.
class PictureLot
{
public:
    PictureLot(QStringList files, std::optional<quint64> seed)
        : m_files(std::move(files))
        , m_random(randomSource(seed))
    {}

    /// A file, or nothing when none is left that can be read.
    std::optional<QString> draw()
    {
        while (!m_files.isEmpty()) {
            std::uniform_int_distribution<qsizetype> place(0, m_files.size() - 1);
            const QString file = m_files[place(m_random)];
            if (m_known.contains(file))
                return file;
            const Result<Picture> picture = loadPicture(file, smallest);
            if (picture) {
                m_known.insert(file);
                return file;
            }
            if (isDecodingStopped())
                return {};
            report(file + u": "_s + picture.error().message);
            m_files.removeOne(file);
            ++m_unreadable;
        }
        return {};
    }

    qsizetype unreadable() const { return m_unreadable; }

private:
    QStringList m_files;
    QRandomGenerator m_random;
    QSet<QString> m_known; // to be readable
    qsizetype m_unreadable = 0;
};

/// Puts the paths of `files` in the place of their names, with or without suffix. What asks for another
/// picture is reported and taken out; the result is how many.
qsizetype choosePictures(std::vector<RequestedSlideshow> &slideshows, const QStringList &files)
{
    QHash<QString, QString> byName;
    for (const QString &file : files) {
        const QFileInfo info(file);
        byName.insert(info.completeBaseName(), file);
        byName.insert(info.fileName(), file);
    }
    return qsizetype(std::erase_if(slideshows, [&](RequestedSlideshow &slideshow) {
        for (QString &picture : slideshow.pictures) {
            if (!picture.isEmpty() && !byName.contains(picture)) {
                report(u"%1: there is no picture “%2”"_s.arg(slideshow.name, picture));
                return true;
            }
            picture = byName.value(picture);
        }
        return false;
    }));
}

/// The slideshows of each batch, in the order of the batches.
class Batches
{
public:
    void add(const QString &batch, JobsOfSlideshow slideshow)
    {
        auto found = std::ranges::find(m_batches, batch, &Batch::name);
        if (found == m_batches.end())
            found = m_batches.insert(found, {batch, {}});
        found->slideshows.push_back(std::move(slideshow));
        ++m_count;
    }

    qsizetype count() const { return m_count; }

    /// Exports each into a folder of its own. Gives the exit status.
    int exportTo(const QString &folder, const ExportTarget &target, const LeftOut &leftOut,
                 const Interruption &interruption)
    {
        int status = done;
        for (Batch &batch : m_batches) {
            std::ranges::reverse(batch.slideshows); // As everywhere, the first is the newest.
            const bool isLast = &batch == &m_batches.back();
            status =
                std::max(status, exportJobs(batch.slideshows, folder + u'/' + batchFolderName(batch.name),
                                            target, isLast ? leftOut : LeftOut(), interruption));
            if (interruption.isRequested())
                break;
        }
        return status;
    }

private:
    struct Batch
    {
        QString name;
        std::vector<JobsOfSlideshow> slideshows;
    };
    std::vector<Batch> m_batches;
    qsizetype m_count = 0;
};

/// The slides of one content; none when it has no slides or there is no picture.
std::vector<SlideJob> slidesOf(const RequestedSlideshow &slideshow, const ExportOptions &options,
                               PictureLot &pictures)
{
    std::vector<SlideJob> jobs;
    const SlideDesign &design = slideshow.design;
    const QList<SlideText> texts = slideTexts(slideshow.content, mostSlidesOfSlideshow);
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const QString chosen = slideshow.pictures.value(i);
        if (const auto picture = chosen.isEmpty() ? pictures.draw() : chosen) {
            jobs.push_back(
                exportJob({texts[i].main, texts[i].subtitle, design.style}, *picture, design.shape, options));
        }
    }
    return jobs;
}

/// From the original files: nothing is written but the slides, nothing read but what they show.
int makeSlides(const BatchRequest &request, const ExportTarget &target, const PictureFiles &found,
               const QString &out)
{
    const Interruption interruption;
    auto requested = requestedSlideshows(request, interruption);
    if (interruption.isRequested())
        return interruption.exitStatus(failed);
    if (!requested)
        return failedWith(requested.error());
    const qsizetype rowsLeftOut = request.rowsLeftOut + choosePictures(*requested, found.files);
    const qsizetype count = qsizetype(requested->size());

    PictureLot pictures(found.files, request.seed);
    Batches batches;
    const QString batchName = batchNameFor(request.batchName);
    std::optional<Progress> progress(std::in_place, u"slideshows prepared"_s);
    for (qsizetype i = 0; i < count && !interruption.isRequested(); ++i) {
        const RequestedSlideshow &slideshow = requested->at(size_t(i));
        const QString caption =
            slideshow.caption.isEmpty() ? captionOf(slideshow.content) : slideshow.caption;
        if (auto jobs = slidesOf(slideshow, target.options, pictures); !jobs.empty())
            batches.add(slideshow.batchName.isEmpty() ? batchName : slideshow.batchName,
                        {std::move(jobs), caption});
        progress->show(i + 1, count);
    }
    progress.reset();
    if (interruption.isRequested())
        return interruption.exitStatus(failed);
    if (batches.count() == 0)
        return failedWith({pictures.unreadable() == found.files.size()
                               ? u"None of the pictures can be read."_s
                               : nothingMade(request)});
    LeftOut leftOut;
    leftOut.note(count - batches.count(), count, u"variations hold no slides"_s);
    leftOut.note(rowsLeftOut, count + rowsLeftOut, rowsNotUsed());
    leftOut.note(pictures.unreadable() + found.problems.size(), found.files.size() + found.problems.size(),
                 u"pictures could not be read"_s);
    return interruption.exitStatus(batches.exportTo(out, target, leftOut, interruption));
}

int make(const Arguments &arguments)
{
    OptionReader options(arguments);
    const QString images = options.required("images"_L1);
    const QString out = options.required("out"_L1);
    const ExportTarget target = readExportTarget(options);
    if (options.problem())
        return wrongUsage(*options.problem());
    const auto request = readBatchRequest(arguments);
    if (!request)
        return request.error();
    if (const auto objection = target.options.objection(out, request->design.shape, 0))
        return failedWith(*objection);
    if (!QFileInfo(images).isDir())
        return failedWith({u"“%1” is not a folder."_s.arg(images)});
    const PictureFiles found = pictureFiles({images});
    for (const Error &problem : found.problems)
        report(problem.message);
    if (found.files.isEmpty())
        return failed;
    return makeSlides(*request, target, found, out);
}

std::vector<OptionSpec> makeOptions()
{
    std::vector<OptionSpec> options = batchOptions();
    options.insert(options.begin(), {{"images"_L1, "DIR"_L1, "folder of the pictures"_L1},
                                     {"out"_L1, "DIR"_L1, "where the folder of the batch is made"_L1}});
    std::ranges::copy(exportTargetOptions(), std::back_inserter(options));
    return options;
}

} // namespace

std::vector<Command> makeCommands()
{
    return {{
        .name = "make"_L1,
        .usage = "--images DIR (--content FILE|- | --table FILE|-) --out DIR [OPTION...]"_L1,
        .summary = "pictures and texts to slides in one go"_L1,
        .details =
            "Makes slideshows from slide texts and randomly chosen pictures of a folder, writes them as "
            "files and prints the folder of the batch. Nothing else is written, and of the pictures only "
            "those "
            "are read that are drawn; one that cannot be read is reported, and another chosen."_L1,
        .options = makeOptions(),
        .usesLibrary = false,
        .draws = true,
        .run = make,
    }};
}

} // namespace mosslantern
