#pragma once

#include "app/update/appcast.h"

#include <QCoro/QCoroTask>
#include <QtCore/QDateTime>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtQml/qqmlregistration.h>

#include <chrono>

namespace mosslantern {

/// Where an updater looks, and what it compares with.
struct UpdaterSettings
{
    QUrl feed;         // of an appcast; invalid for none
    QString version;   // of this program
    QString stateFile; // an INI file that remembers when the last check was
};

/// Looks for newer versions in an appcast and shows what it finds. Installs nothing: it leads to the page
/// from which a version can be downloaded. By itself it looks at most once a day, and speaks up only when
/// there is a newer version.
class SPUUpdater : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    Q_PROPERTY(QString message READ message NOTIFY statusChanged)
    Q_PROPERTY(QString currentVersion READ currentVersion CONSTANT)
    Q_PROPERTY(QString newVersion READ newVersion NOTIFY statusChanged)
    Q_PROPERTY(QString notes READ notes NOTIFY statusChanged)
    Q_PROPERTY(bool hasNotesPage READ hasNotesPage NOTIFY statusChanged)
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged)

public:
    enum class Status { Idle, Checking, UpToDate, UpdateFound, Failed };
    Q_ENUM(Status)

    explicit SPUUpdater(const UpdaterSettings &settings, QObject *parent = nullptr);
    ~SPUUpdater() override;

    /// Begins the checks in the background, after a moment in which the first window can be made.
    void start(std::chrono::milliseconds delay = std::chrono::seconds(5));

    /// Shows the progress and the outcome of a check that begins now or is under way already.
    Q_INVOKABLE void checkForUpdates();

    /// False without a feed.
    Q_INVOKABLE bool canCheckForUpdates() const { return m_settings.feed.isValid(); }

    Status status() const { return m_status; }
    /// Why the last check failed.
    QString message() const { return m_message; }
    /// Of this program.
    QString currentVersion() const { return m_settings.version; }
    /// Of the newer version that was found.
    QString newVersion() const { return m_found.shownVersion; }
    /// What is new in it, as plain text; empty when the feed does not tell.
    QString notes() const { return m_found.notes; }
    /// The page of its release notes; empty for none.
    QUrl notesPage() const { return m_found.notesPage; }
    /// Whether it has such a page.
    bool hasNotesPage() const { return !m_found.notesPage.isEmpty(); }
    /// Where it can be downloaded.
    QUrl downloadPage() const { return m_found.downloadPage; }

    /// Whether the window of the updater is shown.
    bool isShown() const { return m_isShown; }
    /// Hides it. A check that is under way goes on, but speaks up only about a newer version.
    Q_INVOKABLE void dismiss();

    /// Opens the page of the release notes in the browser.
    Q_INVOKABLE void openReleaseNotes();

    /// Opens the download page in the browser and dismisses.
    Q_INVOKABLE void openDownloadPage();

signals:
    void statusChanged();
    void isShownChanged();

private:
    void checkIfDue();
    QCoro::Task<> check();
    void finish(const Result<QList<AppcastItem>> &releases);
    void setStatus(Status status);
    void setShown(bool isShown);

    UpdaterSettings m_settings;
    QNetworkAccessManager m_network{this};
    bool m_isChecking = false;
    QNetworkReply *m_reply = nullptr; // while the feed is on its way
    QTimer m_schedule;
    Status m_status = Status::Idle;
    QString m_message;
    AppcastItem m_found;
    bool m_isShown = false;
};

} // namespace mosslantern
