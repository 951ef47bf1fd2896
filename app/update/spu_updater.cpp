#include "app/update/spu_updater.h"

#include "model/change.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroNetworkReply>
#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QPointer>
#include <QtCore/QScopedPointer>
#include <QtCore/QSettings>
#include <QtGui/QDesktopServices>
#include <QtNetwork/QHostAddress>

#include <memory>
#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto lastCheckKey = "lastUpdateCheck"_L1;
constexpr auto shortestInterval = 24h;
constexpr qint64 largestFeed = qint64(4) << 20;

/// A feed must come over HTTPS, so that nobody on the way can announce versions of their own; on this very
/// machine there is no way.
bool isTrustworthy(const QUrl &url)
{
    return url.scheme() == "https"_L1 || (url.scheme() == "http"_L1 && QHostAddress(url.host()).isLoopback());
}

} // namespace

SPUUpdater::SPUUpdater(const UpdaterSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
{
    if (!isTrustworthy(m_settings.feed))
        m_settings.feed = QUrl(QString(), QUrl::StrictMode);
    m_schedule.setInterval(1h);
    connect(&m_schedule, &QTimer::timeout, this, &SPUUpdater::checkIfDue);
}

SPUUpdater::~SPUUpdater()
{
    // A check that is under way comes to its end, and finds that nobody waits for it.
    if (QNetworkReply *const reply = std::exchange(m_reply, nullptr))
        reply->abort();
}

void SPUUpdater::start(std::chrono::milliseconds delay)
{
    if (!canCheckForUpdates())
        return;
    m_schedule.start();
    QTimer::singleShot(delay, this, &SPUUpdater::checkIfDue);
}

void SPUUpdater::checkForUpdates()
{
    if (!canCheckForUpdates())
        return;
    setStatus(Status::Checking);
    setShown(true);
    if (!m_isChecking)
        check();
}

void SPUUpdater::checkIfDue()
{
    const QDateTime last =
        QSettings(m_settings.stateFile, QSettings::IniFormat).value(lastCheckKey).toDateTime();
    const qint64 passed = last.secsTo(QDateTime::currentDateTimeUtc());
    const bool isDue =
        !last.isValid() || passed < 0 || passed >= std::chrono::seconds(shortestInterval).count();
    if (isDue && !m_isChecking && !m_isShown)
        check();
}

QCoro::Task<> SPUUpdater::check()
{
    m_isChecking = true;
    QSettings(m_settings.stateFile, QSettings::IniFormat)
        .setValue(lastCheckKey, QDateTime::currentDateTimeUtc());

    QNetworkRequest request(m_settings.feed);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setTransferTimeout(30s / 1ms);
    // The end of the wait is inside a function of the reply, which goes on afterwards.
    const std::unique_ptr<QNetworkReply, QScopedPointerDeleteLater> reply(m_network.get(request));
    m_reply = reply.get();
    connect(m_reply, &QNetworkReply::readyRead, m_reply, [reply = m_reply] {
        if (reply->bytesAvailable() > largestFeed)
            reply->abort();
    });
    co_await reply.get();

    if (!std::exchange(m_reply, nullptr))
        co_return;
    if (reply->error() != QNetworkReply::NoError) {
        finish(fail(reply->errorString()));
        co_return;
    }
    const QPointer<SPUUpdater> self(this);
    // Away from the interface: notes are HTML, which takes its time.
    const auto releases = co_await QtConcurrent::run(parseAppcast, reply->readAll());
    if (self)
        finish(releases);
}

void SPUUpdater::finish(const Result<QList<AppcastItem>> &releases)
{
    m_isChecking = false;
    const auto update = releases ? newestUpdate(*releases, m_settings.version) : std::optional<AppcastItem>();
    if (update) {
        m_found = *update;
        setStatus(Status::UpdateFound);
        setShown(true);
    } else if (m_isShown) {
        m_message = releases ? QString() : releases.error().message;
        setStatus(releases ? Status::UpToDate : Status::Failed);
    } else {
        // Nobody asked, or whoever asked no longer waits.
        setStatus(Status::Idle);
    }
}

void SPUUpdater::dismiss()
{
    setShown(false);
}

void SPUUpdater::openDownloadPage()
{
    QDesktopServices::openUrl(m_found.downloadPage);
    dismiss();
}

void SPUUpdater::openReleaseNotes()
{
    QDesktopServices::openUrl(m_found.notesPage);
}

void SPUUpdater::setStatus(Status status)
{
    m_status = status;
    emit statusChanged();
}

void SPUUpdater::setShown(bool isShown)
{
    change(*this, m_isShown, isShown, &SPUUpdater::isShownChanged);
}

} // namespace mosslantern
