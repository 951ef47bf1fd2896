#include "ui/common/thumbnail_loader.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>

namespace mosslantern {

namespace {

/// One processor stays free for the interface.
int workerCount()
{
    return std::clamp(QThread::idealThreadCount() - 1, 1, 4);
}

constexpr int placeholdersKept = 16;

/// Lets the calling thread wait for those that draw. A QThread's priority does nothing on Linux.
void yieldToDrawing()
{
    constexpr int nicer = 10;
    thread_local const int once = [] {
        const auto thread = static_cast<id_t>(::gettid());
        return ::setpriority(PRIO_PROCESS, thread, ::getpriority(PRIO_PROCESS, thread) + nicer);
    }();
    static_cast<void>(once);
}

} // namespace

ThumbnailLoader::ThumbnailLoader(QObject *parent)
    : QObject(parent)
    , m_cache(static_cast<int>(mostCachedBytes / costUnit))
    , m_placeholders(placeholdersKept)
{
    m_pool.setMaxThreadCount(workerCount());
}

ThumbnailLoader::~ThumbnailLoader()
{
    m_pool.waitForDone();
}

QImage ThumbnailLoader::cached(const ThumbnailRequest &request) const
{
    const QImage *const image = m_cache.object(request);
    return image ? *image : QImage();
}

QImage ThumbnailLoader::placeholder(const ThumbnailRequest &request)
{
    ThumbnailRequest look = request;
    look.path.clear();
    if (const QImage *const image = m_placeholders.object(look))
        return *image;
    const QImage image = makeThumbnailPlaceholder(look);
    m_placeholders.insert(look, new QImage(image));
    return image;
}

void ThumbnailLoader::request(const ThumbnailRequest &request, QObject *asker, Receiver receiver)
{
    withdraw(asker);
    m_waiting.push_front({request, asker, std::move(receiver)});
    startJobs();
}

void ThumbnailLoader::withdraw(const QObject *asker)
{
    std::erase_if(m_waiting, [asker](const Job &job) { return job.asker == asker; });
}

void ThumbnailLoader::startJobs()
{
    while (m_running < m_pool.maxThreadCount() && !m_waiting.empty()) {
        Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (!job.asker)
            continue;
        ++m_running;
        m_pool.start([this, job = std::move(job)]() mutable {
            yieldToDrawing();
            QImage image = makeThumbnail(job.request);
            QMetaObject::invokeMethod(
                this, [this, job = std::move(job), image = std::move(image)] { finish(job, image); },
                Qt::QueuedConnection);
        });
    }
}

void ThumbnailLoader::finish(const Job &job, const QImage &image)
{
    --m_running;
    if (!image.isNull())
        m_cache.insert(job.request, new QImage(image), image.sizeInBytes() / costUnit + 1);
    startJobs();
    if (job.asker)
        job.receiver(image);
}

} // namespace mosslantern
