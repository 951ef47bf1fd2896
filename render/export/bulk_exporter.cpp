#include "render/export/bulk_exporter.h"

#include "model/console.h"
#include "model/slideshow.h"
#include "render/film/film_maker.h"
#include "render/picture/decoding_stop.h"

#include <QCoroTimer>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

#include <chrono>
#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

AspectRatio shapeOf(const Slideshow &slideshow)
{
    return slideshow.aspectRatio().value_or(AspectRatio::tiktok);
}

bool isThere(const QPointer<Slideshow> &slideshow)
{
    return slideshow && slideshow->store();
}

std::unexpected<Error> givenUp()
{
    return fail(u"The export was given up."_s);
}

int slidesOf(const QList<QPointer<Slideshow>> &slideshows)
{
    qsizetype count = 0;
    for (const QPointer<Slideshow> &slideshow : slideshows)
        count += isThere(slideshow) ? slideshow->slides().size() : 0;
    return static_cast<int>(count);
}

QString slideshowPath(const QString &folder, size_t index)
{
    return folder + u"/Slideshow_%1"_s.arg(index + 1);
}

} // namespace

BulkExporter::BulkExporter(FolderOpener openFolder, int threads)
    : m_openFolder(std::move(openFolder))
    , m_renderer(threads)
{
    // What an export that is never resumed has begun must not run into the end of the program.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            [this] { m_renderer.waitForDone(); });
}

QCoro::Task<Result<>> BulkExporter::exportSlideshows(QList<Slideshow *> slideshows, QString base)
{
    const QPointer<BulkExporter> self(this);
    QList<QPointer<Slideshow>> waiting;
    for (Slideshow *slideshow : slideshows)
        waiting.append(slideshow);
    begin(0);
    for (qsizetype i = 0; i < waiting.size(); ++i) {
        if (!isThere(waiting[i]))
            continue;
        const QString folder =
            slideshowPath(base + u'/' + batchFolderName(waiting[i]->batchName()), size_t(i));
        if (m_options.takes(shapeOf(*waiting[i]))) {
            if (const Result<> made = prepare(folder); !made)
                co_return made;
        }
        co_await QCoro::sleepFor(std::chrono::milliseconds(0));
        if (!self)
            co_return givenUp();
        if (isThere(waiting[i])) {
            m_total = m_written + m_leftOut + slidesOf(waiting.sliced(i));
            writeSlideImages(*waiting[i], folder);
        }
    }
    if (const Result<> finished = finishBatches(); !finished)
        co_return finished;
    // The last ones may have been removed.
    if (const int total = m_written + m_leftOut; std::exchange(m_total, total) != total)
        emit progressed(m_written, m_leftOut, m_total);
    if (m_openFolder)
        m_openFolder(base);
    co_return Result<>();
}

Result<> BulkExporter::exportJobs(const std::vector<JobsOfSlideshow> &slideshows, const QString &folder,
                                  const std::function<bool()> &goesOn)
{
    int total = 0;
    for (const JobsOfSlideshow &slideshow : slideshows)
        total += static_cast<int>(slideshow.slides.size());
    begin(total);
    for (size_t i = 0; i < slideshows.size() && goesOn(); ++i) {
        const QString path = slideshowPath(folder, i);
        if (const Result<> made = prepare(path); !made)
            return made;
        const JobsOfSlideshow &slideshow = slideshows[i];
        writeSlides(slideshow.slides, path, goesOn);
        if (const Result<> written = writeCaption(slideshow.caption, path); !written)
            emit fileLeftOut(written.error().message);
        if (m_indexes)
            m_indexes->add(path, indexEntry(slideshow.slides, slideshow.caption));
    }
    return goesOn() ? finishBatches() : Result<>();
}

Result<std::vector<SlideJob>> BulkExporter::jobsOf(const Slideshow &slideshow, QList<Slide *> slides,
                                                   const QString &folder)
{
    const AspectRatio shape = shapeOf(slideshow);
    const std::optional<Error> objection = m_options.objection(folder, shape, slides.size());
    if (objection && !m_options.takes(shape))
        return std::unexpected(*objection);
    if (objection) {
        emit fileLeftOut(objection->message);
        m_leftOut += static_cast<int>(slides.size()) - m_options.mostSlides();
        slides.resize(m_options.mostSlides());
    }
    std::vector<SlideJob> jobs;
    for (const Slide *slide : slides)
        jobs.push_back(exportJob(*slide, shape, m_options));
    return jobs;
}

void BulkExporter::writeSlideImages(const Slideshow &slideshow, const QString &folder)
{
    const auto jobs = jobsOf(slideshow, slideshow.slidesInOrder(), folder);
    if (jobs) {
        writeSlides(*jobs, folder, [] { return true; });
        if (const Result<> written = writeCaption(slideshow.caption(), folder); !written)
            emit fileLeftOut(written.error().message);
        if (m_indexes)
            m_indexes->add(folder, indexEntry(slideshow));
    } else {
        m_leftOut += static_cast<int>(slideshow.slides().size());
        emit fileLeftOut(jobs.error().message);
    }
}

void BulkExporter::writeSlides(const std::vector<SlideJob> &jobs, const QString &folder,
                               const std::function<bool()> &goesOn)
{
    if (m_options.film) {
        if (const Result<> made = writeFilm(jobs, folder); !made && !isDecodingStopped())
            emit fileLeftOut(made.error().message);
        return;
    }
    m_renderer.render(jobs, [&](size_t index, const EncodedSlide &slide) {
        // The others are still worth having.
        if (const Result<> written = writeSlide(folder + u'/' + m_options.fileName(index), slide); !written)
            emit fileLeftOut(written.error().message);
        return goesOn();
    });
}

/// A film is called like the folder that its slides would be in.
Result<> BulkExporter::prepare(const QString &folder)
{
    return m_destination->prepareFolder(m_options.film ? QFileInfo(folder).path() : folder);
}

Result<> BulkExporter::writeFilm(const std::vector<SlideJob> &jobs, const QString &folder)
{
    if (jobs.empty())
        return {};
    const QString file = folder + u'.' + rawText(m_options.film->format);
    const int before = m_written;
    const Result<MadeFilm> film = makeFilm(jobs, *m_options.film, file, m_renderer.crew(), [&](int slides) {
        emit progressed(before + slides, m_leftOut, m_total);
    });
    (film ? m_written : m_leftOut) += static_cast<int>(jobs.size());
    emit progressed(m_written, m_leftOut, m_total);
    if (!film)
        return std::unexpected(film.error());
    for (const QString &problem : film->pictureProblems) {
        if (!problem.isEmpty())
            emit pictureMissing(file, problem);
    }
    return {};
}

void BulkExporter::begin(int total)
{
    m_written = 0;
    m_leftOut = 0;
    m_total = total;
}

QCoro::Task<Result<>> BulkExporter::exportSlideshow(const Slideshow &slideshow, const QString &folder)
{
    begin(static_cast<int>(slideshow.slides().size()));
    return writeInTurn(jobsOf(slideshow, slideshow.slides(), folder), slideshow.caption(), folder);
}

QCoro::Task<Result<>> BulkExporter::writeInTurn(Result<std::vector<SlideJob>> jobs, QString caption,
                                                QString folder)
{
    const QPointer<BulkExporter> self(this);
    const ExportOptions options = m_options;
    Result<> outcome = jobs ? prepare(folder) : std::unexpected(jobs.error());
    if (outcome && options.film)
        outcome = writeFilm(std::exchange(*jobs, {}), folder);
    SlideRun run = m_renderer.start(jobs ? std::move(*jobs) : std::vector<SlideJob>());
    for (size_t index = 0; outcome && run.hasNext(); ++index) {
        co_await QCoro::sleepFor(std::chrono::milliseconds(0));
        if (!self)
            co_return givenUp();
        outcome = writeSlide(folder + u'/' + options.fileName(index), run.next());
    }
    if (outcome)
        outcome = writeCaption(caption, folder);
    if (outcome)
        outcome = m_destination->finish();
    if (!outcome)
        printLine(u"Failed to export: "_s + outcome.error().message);
    else if (m_openFolder)
        m_openFolder(folder);
    co_return outcome;
}

Result<> BulkExporter::writeCaption(const QString &caption, const QString &folder)
{
    if (caption.isEmpty())
        return {};
    return m_destination->writeBeside(m_options.film ? folder + u".txt"_s : folder + u"/caption.txt"_s,
                                      caption.toUtf8() + '\n');
}

Result<> BulkExporter::finishBatches()
{
    const Result<> indexed = m_indexes ? m_indexes->write(*m_destination) : Result<>();
    return indexed ? m_destination->finish() : indexed;
}

Result<> BulkExporter::writeSlide(const QString &file, const EncodedSlide &slide)
{
    const Result<> written = m_destination->write(file, slide);
    if (written && !slide.pictureProblem.isEmpty())
        emit pictureMissing(file, slide.pictureProblem);
    ++(written ? m_written : m_leftOut);
    emit progressed(m_written, m_leftOut, m_total);
    return written;
}

} // namespace mosslantern
