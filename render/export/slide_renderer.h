#pragma once

#include "render/export/png_encoder.h"
#include "render/export/slide_job.h"
#include "render/work_crew.h"

#include <QtCore/QThread>

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace mosslantern {

/// A slide drawn and compressed, ready to be written.
struct EncodedSlide
{
    QSize size;           // pixels
    QList<PngBand> bands; // of a PNG picture
    /// Why the slide stands on the placeholder instead of its picture; empty when it does not.
    QString pictureProblem;
    QByteArray file = {}; // of a picture in another format
    /// Why there is neither; empty where there was not enough memory, or decoding was stopped.
    QString problem = {};

    bool isDrawn() const { return !bands.isEmpty() || !file.isEmpty(); }
    /// Why it is not drawn, for people.
    [[nodiscard]] QString reason() const;
};

class SlideTask;

/// Slides that are drawn one after the other. While one is waited for, and until the next is asked for, those
/// after it are drawn already, as many as there may be in memory.
class SlideRun
{
public:
    /// The crew must outlive the run.
    SlideRun(std::vector<SlideJob> jobs, WorkCrew &crew);
    /// Waits for what is being drawn.
    ~SlideRun();
    Q_DISABLE_COPY_MOVE(SlideRun)

    bool hasNext() const { return m_next < m_jobs.size() || !m_running.empty(); }
    /// Waits for the next slide, of which there must be one.
    EncodedSlide next();

private:
    std::vector<SlideJob> m_jobs;
    WorkCrew &m_crew;
    /// Whether the next job may be begun beside those that are running.
    bool hasRoom();

    std::deque<std::unique_ptr<SlideTask>> m_running;
    std::deque<qint64> m_bytes; ///< that each that is running holds, at most
    qint64 m_nextBytes = -1;    ///< unknown
    size_t m_next = 0;
};

/// Draws slides into files in memory on all cores. Decoding, painting and compressing run on a crew of
/// threads (of PNG band by band, of other formats slide by slide), with a bounded number of slides in memory;
/// texts are laid out on the calling thread, which is the only one that touches fonts.
class SlideRenderer
{
public:
    /// `threads`: how many slides' worth of work runs at once, at least 1.
    explicit SlideRenderer(int threads = QThread::idealThreadCount());
    ~SlideRenderer();

    /// Draws all jobs and calls `write` on this thread with the number of each job and its result, in order.
    /// Ends early when `write` returns false, and at a slide that is not drawn because decoding is stopped.
    /// Returns when nothing is running any more.
    void render(std::span<const SlideJob> jobs,
                const std::function<bool(size_t, const EncodedSlide &)> &write);

    /// Begins to draw the jobs for a caller that takes them one by one, before the renderer goes.
    [[nodiscard]] SlideRun start(std::vector<SlideJob> jobs) { return {std::move(jobs), m_crew}; }

    /// The threads, for other work between two runs.
    WorkCrew &crew() { return m_crew; }

    /// Waits until nothing is running any more.
    void waitForDone() { m_crew.waitForAll(); }

private:
    WorkCrew m_crew;
};

} // namespace mosslantern
