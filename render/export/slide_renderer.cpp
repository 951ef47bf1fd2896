#include "render/export/slide_renderer.h"

#include "render/background.h"
#include "render/export/slide_encoder.h"
#include "render/fitted_slide.h"
#include "render/picture/decoding_stop.h"
#include "render/picture/picture_loader.h"
#include "render/pixels/pixels.h"

#include <atomic>
#include <new>
#include <numeric>
#include <optional>
#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

// Small enough that a band's pixels stay in the processor's cache from painting to compressing.
constexpr int bandRows = 64;

// Of the slides that are running together, beside what their decoders hold.
constexpr qint64 mostBytesHeld = qint64(168) << 20;

// So that every core has work to the last slide.
constexpr auto decoding = WorkCrew::Order::first;
constexpr auto compressing = WorkCrew::Order::later;

} // namespace

/// One slide on its way through the crew: decode, then all bands, in any order.
class SlideTask
{
public:
    SlideTask(const SlideJob &job, WorkCrew &crew)
        : m_job(job)
        , m_crew(crew)
    {}

    /// On the thread that may touch fonts.
    void start()
    {
        try {
            m_texts = drawTexts(m_job.values, m_job.canvas);
        } catch (const std::bad_alloc &) {
            m_isGivenUp = true;
        }
        m_remaining = 1;
        m_crew.start([this] { run([this] { decode(); }); }, decoding);
    }

    EncodedSlide wait()
    {
        m_crew.waitFor(m_isDone);
        if (m_isGivenUp)
            return {};
        keepToLimit();
        return {m_size, std::move(m_bands), std::move(m_pictureProblem), std::move(m_file),
                std::move(m_problem)};
    }

private:
    /// Does one of the slide's pieces of work; the last one ends it.
    template <typename Work>
    void run(Work work)
    {
        try {
            if (!m_isGivenUp)
                work();
        } catch (const std::bad_alloc &) {
            m_isGivenUp = true;
        }
        if (--m_remaining == 0) {
            m_slide.reset();
            m_isDone = true;
        }
    }

    void decode()
    {
        const Result<Background> background = tryLoadBackground(m_job.picturePath, m_job.canvas);
        if (isDecodingStopped()) { // and no slide without its picture written
            m_isGivenUp = true;
            return;
        }
        if (!background)
            m_pictureProblem = background.error().message;
        m_slide.emplace(m_job.canvas, background.value_or(missingPictureColor), std::move(m_texts),
                        m_job.corners, m_job.frame);
        m_size = m_slide->size();
        if (!m_job.encoding.isByBands()) {
            ++m_remaining;
            m_crew.start([this] { run([this] { encodeWhole(); }); }, compressing);
            return;
        }
        const int count = (m_size.height() + bandRows - 1) / bandRows;
        m_bands.resize(count);
        m_remaining += count;
        for (int i = 0; i < count; ++i)
            m_crew.start([this, i] { run([this, i] { encode(i); }); }, compressing);
    }

    void encodeWhole()
    {
        const auto paint = [this](int first, int count, uint8_t *out) {
            m_slide->paintRows(first, count, out);
        };
        Result<QByteArray> file = encodeSlide(m_size, paint, m_job.encoding);
        if (file)
            m_file = std::move(*file);
        else
            m_problem = file.error().message;
    }

    /// A PNG picture has but one size.
    void keepToLimit()
    {
        if (m_bands.isEmpty() || !m_job.encoding.mostBytes ||
            pngFileSize(m_bands) <= *m_job.encoding.mostBytes)
            return;
        m_bands.clear();
        m_problem = tooLarge(*m_job.encoding.mostBytes).message;
    }

    void encode(int band)
    {
        const int first = band * bandRows;
        const int rows = std::min(bandRows, m_size.height() - first);
        const bool last = first + rows == m_size.height();
        const int width = m_size.width();
        // The filter looks at the row above.
        const int extra = first > 0 ? 1 : 0;
        std::vector<uint8_t> pixels(static_cast<size_t>(4) * static_cast<size_t>(width) *
                                    static_cast<size_t>(rows + extra));
        m_slide->paintRows(first - extra, rows + extra, pixels.data());
        unpremultiply(pixels.data(), width * (rows + extra));
        const uint8_t *start = pixels.data() + static_cast<ptrdiff_t>(4) * width * extra;
        m_bands[band] = encodePngBand(start, extra ? pixels.data() : nullptr, width, rows, last);
    }

    SlideJob m_job;
    std::vector<Layer> m_texts;
    WorkCrew &m_crew;
    std::optional<FittedSlide> m_slide;
    QSize m_size;
    QList<PngBand> m_bands;
    QByteArray m_file;
    QString m_pictureProblem;
    QString m_problem;
    std::atomic<int> m_remaining = 0;
    std::atomic<bool> m_isGivenUp = false;
    std::atomic<bool> m_isDone = false;
};

QString EncodedSlide::reason() const
{
    return problem.isEmpty() ? u"there is not enough memory to draw the slide."_s : problem;
}

SlideRun::SlideRun(std::vector<SlideJob> jobs, WorkCrew &crew)
    : m_jobs(std::move(jobs))
    , m_crew(crew)
{}

SlideRun::~SlideRun()
{
    for (const std::unique_ptr<SlideTask> &task : m_running)
        task->wait();
}

bool SlideRun::hasRoom()
{
    // One more than there are threads, so that none waits while the last bands of a slide are compressed.
    const auto threads = static_cast<size_t>(m_crew.size());
    const size_t most = threads > 1 ? threads + 1 : 1;
    if (m_running.size() >= most)
        return false;
    const SlideJob &job = m_jobs[m_next];
    if (m_nextBytes < 0)
        m_nextBytes = mostImageBytes(job.picturePath, {job.canvas.pixelSize(), true}) +
                      encodingMemory(job.pixelSize(), job.encoding);
    const qint64 held = std::reduce(m_bytes.begin(), m_bytes.end());
    return m_running.empty() || held + m_nextBytes <= mostBytesHeld;
}

EncodedSlide SlideRun::next()
{
    for (; m_next < m_jobs.size() && hasRoom(); ++m_next) {
        m_running.push_back(std::make_unique<SlideTask>(m_jobs[m_next], m_crew));
        m_bytes.push_back(std::exchange(m_nextBytes, -1));
        m_running.back()->start();
    }
    EncodedSlide slide = m_running.front()->wait();
    m_running.pop_front();
    m_bytes.pop_front();
    return slide;
}

SlideRenderer::SlideRenderer(int threads)
    : m_crew(threads)
{}

SlideRenderer::~SlideRenderer() = default;

void SlideRenderer::render(std::span<const SlideJob> jobs,
                           const std::function<bool(size_t, const EncodedSlide &)> &write)
{
    SlideRun run({jobs.begin(), jobs.end()}, m_crew);
    for (size_t index = 0; run.hasNext(); ++index) {
        const EncodedSlide slide = run.next();
        const bool isStopped = !slide.isDrawn() && isDecodingStopped();
        if (isStopped || !write(index, slide))
            return;
    }
}

} // namespace mosslantern
