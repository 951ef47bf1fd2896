#pragma once

#include "ui/common/thumbnail_picture.h"

#include <QtCore/QCache>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QThreadPool>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <functional>

namespace mosslantern {

/// Makes thumbnails in the background, what was asked for last first, and keeps as many of them as fit into a
/// fixed amount of memory. The screens of one engine share one.
class ThumbnailLoader : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using Receiver = std::function<void(const QImage &)>;

    explicit ThumbnailLoader(QObject *parent = nullptr);
    ~ThumbnailLoader() override;

    /// The thumbnail, if it is at hand.
    QImage cached(const ThumbnailRequest &request) const;

    /// What stands in for it until then.
    QImage placeholder(const ThumbnailRequest &request);

    /// Calls `receiver` later with the thumbnail, or with a null image when it cannot be made, unless `asker`
    /// withdraws or is gone by then. One request at a time for each asker.
    void request(const ThumbnailRequest &request, QObject *asker, Receiver receiver);
    void withdraw(const QObject *asker);

    /// Bytes of the thumbnails that are kept, and the most there can be.
    qint64 cachedBytes() const { return static_cast<qint64>(m_cache.totalCost()) * costUnit; }
    static constexpr qint64 mostCachedBytes = qint64(64) << 20;

private:
    static constexpr qint64 costUnit = 1024;

    struct Job
    {
        ThumbnailRequest request;
        QPointer<QObject> asker;
        Receiver receiver;
    };

    void startJobs();
    void finish(const Job &job, const QImage &image);

    QCache<ThumbnailRequest, QImage> m_cache;
    QCache<ThumbnailRequest, QImage> m_placeholders;
    std::deque<Job> m_waiting;
    QThreadPool m_pool;
    int m_running = 0;
};

} // namespace mosslantern
