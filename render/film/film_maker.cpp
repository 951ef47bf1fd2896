#include "render/film/film_maker.h"

#include "render/background.h"
#include "render/film/film_timeline.h"
#include "render/film/film_writer.h"
#include "render/fitted_slide.h"
#include "render/picture/decoding_stop.h"
#include "render/picture/picture_errors.h"
#include "render/pixels/pixels.h"
#include "render/work_crew.h"

#include <map>
#include <new>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int bandRows = 64;

QSize evenPart(QSize size)
{
    return {size.width() & ~1, size.height() & ~1};
}

/// The background with its picture `zoom` times as large, around the middle.
Background zoomed(const Background &background, double zoom)
{
    const auto *fill = std::get_if<PictureFill>(&background);
    if (!fill)
        return background;
    QRectF part(QPointF(), fill->part.size() / zoom);
    part.moveCenter(fill->part.center());
    return PictureFill{fill->image, part};
}

/// A slide of the film: its photograph and texts, and its newest frame.
class FilmSlide
{
public:
    FilmSlide(const SlideJob &job, WorkCrew &crew)
        : m_job(job)
        , m_crew(crew)
        , m_texts(drawTexts(job.values, job.canvas))
        , m_background(tryLoadBackground(job.picturePath, job.canvas))
        , m_frame(evenPart(job.pixelSize()))
    {}

    QString pictureProblem() const { return m_background ? QString() : m_background.error().message; }

    /// Drawn only when it differs from the last one.
    const YuvFrame &frame(double zoom)
    {
        if (zoom != m_zoom)
            draw(zoom);
        m_zoom = zoom;
        return m_frame;
    }

private:
    void draw(double zoom)
    {
        const FittedSlide slide(m_job.canvas, zoomed(m_background.value_or(missingPictureColor), zoom),
                                m_texts, m_job.corners, m_job.frame);
        const QSize size = m_frame.size();
        std::atomic<bool> isShortOfMemory = false;
        for (int first = 0; first < size.height(); first += bandRows) {
            const auto band = [&, first] {
                try {
                    const int count = std::min(bandRows, size.height() - first);
                    const int width = slide.size().width();
                    std::vector<uint8_t> pixels(size_t(4) * size_t(width) * size_t(count));
                    slide.paintRows(first, count, pixels.data());
                    putOnWhite(pixels.data(), width * count);
                    m_frame.setRows(first, count, pixels.data(), width);
                } catch (const std::bad_alloc &) {
                    isShortOfMemory = true;
                }
            };
            m_crew.start(band, WorkCrew::Order::later);
        }
        m_crew.waitForAll();
        if (isShortOfMemory)
            throw std::bad_alloc();
    }

    const SlideJob &m_job;
    WorkCrew &m_crew;
    std::vector<Layer> m_texts;
    Result<Background> m_background;
    YuvFrame m_frame;
    double m_zoom = 0; // not drawn yet
};

/// Slow at both ends.
double eased(double mix)
{
    return mix * mix * (3 - 2 * mix);
}

class FilmMaker
{
public:
    FilmMaker(std::span<const SlideJob> jobs, const FilmOptions &options, WorkCrew &crew)
        : m_jobs(jobs)
        , m_options(options)
        , m_crew(crew)
        , m_timeline(int(jobs.size()), options)
        , m_transition(evenPart(jobs.front().pixelSize()))
    {}

    Result<MadeFilm> make(const QString &path, const std::function<void(int)> &progressed)
    {
        FilmWriter writer(path, m_options);
        if (const Result<> started = writer.start(m_transition.size(), m_timeline.frames()); !started)
            return std::unexpected(started.error());
        for (int frame = 0; frame < m_timeline.frames(); ++frame) {
            const FilmMoment moment = m_timeline.moment(frame);
            if (progressed && moment.slide != m_timeline.moment(std::max(0, frame - 1)).slide)
                progressed(moment.slide);
            const Result<> written = writer.write(frameAt(moment));
            if (isDecodingStopped())
                return fail(stoppedDecoding());
            if (!written)
                return std::unexpected(written.error());
        }
        if (const Result<> finished = writer.finish(); !finished)
            return std::unexpected(finished.error());
        return m_made;
    }

private:
    const YuvFrame &frameAt(const FilmMoment &moment)
    {
        m_slides.erase(m_slides.begin(), m_slides.lower_bound(moment.slide));
        const YuvFrame &shown = slide(moment.slide).frame(zoomAt(moment.progress));
        if (moment.mix == 0)
            return shown;
        const YuvFrame &next = slide(moment.slide + 1).frame(zoomAt(moment.nextProgress));
        if (m_options.transition == Transition::fade)
            m_transition.setFade(shown, next, moment.mix);
        else
            m_transition.setPush(shown, next, eased(moment.mix));
        return m_transition;
    }

    double zoomAt(double progress) const { return 1 + (m_options.zoom - 1) * progress; }

    FilmSlide &slide(int index)
    {
        const auto [place, isNew] = m_slides.try_emplace(index, m_jobs[size_t(index)], m_crew);
        if (isNew)
            m_made.pictureProblems.append(place->second.pictureProblem());
        return place->second;
    }

    std::span<const SlideJob> m_jobs;
    FilmOptions m_options;
    WorkCrew &m_crew;
    FilmTimeline m_timeline;
    YuvFrame m_transition;
    std::map<int, FilmSlide> m_slides; // those that are seen
    MadeFilm m_made;
};

} // namespace

Result<MadeFilm> makeFilm(std::span<const SlideJob> slides, const FilmOptions &options, const QString &path,
                          WorkCrew &crew, const std::function<void(int)> &progressed)
{
    try {
        return FilmMaker(slides, options, crew).make(path, progressed);
    } catch (const std::bad_alloc &) {
        return fail(u"“%1” could not be written: there is not enough memory."_s.arg(path));
    }
}

} // namespace mosslantern
