#pragma once

#include "render/export/png_encoder.h"
#include "render/export/slide_job.h"

#include <QtCore/QThreadPool>

#include <functional>
#include <span>

namespace mosslantern {

/// A slide drawn and compressed, ready to be written.
struct EncodedSlide
{
    QSize size;           // pixels
    QList<PngBand> bands; // none: there was not enough memory to draw the slide
    /// Why the slide stands on the placeholder instead of its picture; empty when it does not.
    QString pictureProblem;
};

/// Draws slides into PNG data on all cores. Decoding, painting and compressing run on a thread pool, band by
/// band, with a bounded number of slides in memory; texts are laid out on the calling thread, which is the
/// only one that touches fonts.
class SlideRenderer
{
public:
    /// `threads`: how many slides' worth of work runs at once, at least 1.
    explicit SlideRenderer(int threads = QThread::idealThreadCount());
    ~SlideRenderer();

    /// Draws all jobs and calls `write` on this thread with the number of each job and its result, in order.
    /// Ends early when `write` returns false. Returns when nothing is running any more.
    void render(std::span<const SlideJob> jobs,
                const std::function<bool(size_t, const EncodedSlide &)> &write);

private:
    QThreadPool m_pool;
};

} // namespace mosslantern
