#include "app/update/spu_updater.h"
#include "app/update/version_order.h"
#include "tests/content/test_server.h"
#include "tests/table.h"

#include <QtCore/QSettings>
#include <QtNetwork/QNetworkReply>
#include <QtTest/QSignalSpy>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QByteArray feedOf(const QByteArray &items)
{
    return "<?xml version=\"1.0\"?><rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\" "
           "xmlns:atom=\"http://www.w3.org/2005/Atom\"><channel><title>t</title>" +
           items + "</channel></rss>";
}

QByteArray item(const QByteArray &inside)
{
    return "<item>" + inside + "<link>https://example.org/get</link></item>";
}

/// An item of which nothing is known but its version, and `more`.
QByteArray release(const QByteArray &version, const QByteArray &more = {})
{
    return item("<sparkle:version>" + version + "</sparkle:version>" + more);
}

/// A server's answer with this feed.
QByteArray feedAnswer(const QByteArray &items)
{
    return httpAnswer(feedOf(items));
}

} // namespace

class UpdaterTest : public QObject
{
    Q_OBJECT

private:
    UpdaterSettings settings(const TestServer &server) const
    {
        return {.feed = QUrl(u"http://127.0.0.1:%1/feed.xml"_s.arg(server.port())),
                .version = u"1.2"_s,
                .stateFile = m_folder.filePath(u"state.ini"_s)};
    }

    QTemporaryDir m_folder;

private slots:
    void init() { QFile::remove(m_folder.filePath(u"state.ini"_s)); }

    void ordersVersions()
    {
        const std::pair<QString, QString> pairs[]{{u"1.0"_s, u"1.1"_s},
                                                  {u"1.9"_s, u"1.10"_s},
                                                  {u"1.0"_s, u"1.0.1"_s},
                                                  {u"1.0b2"_s, u"1.0"_s},
                                                  {u"1.0b2"_s, u"1.0b10"_s},
                                                  {u"1.0a1"_s, u"1.0b1"_s},
                                                  {u"1.0rc1"_s, u"1.0.1"_s},
                                                  {u"007"_s, u"8"_s},
                                                  {u"99999999999999999999"_s, u"100000000000000000000"_s}};
        for (const auto &[older, newer] : pairs) {
            QVERIFY2(compareVersions(older, newer) < 0, qPrintable(older));
            QVERIFY2(compareVersions(newer, older) > 0, qPrintable(older));
            QVERIFY2(compareVersions(newer, newer) == 0, qPrintable(newer));
        }
    }

    void readsAppcasts_data()
    {
        const auto row = table<QByteArray, QString>({"items", "found"});
        const QByteArray two = release("2");
        row("nothing", {}, {});
        row("newest of several", two + release("10") + two, u"10"_s);
        row("version in the enclosure",
            item(
                "<enclosure url='https://e.org/f' sparkle:version='3' sparkle:shortVersionString='3 beta'/>"),
            u"3 beta"_s);
        row("other systems",
            item("<enclosure url='https://e.org/f' sparkle:version='3' sparkle:os='macos'/>") + two, u"2"_s);
        row("a channel", release("3", "<sparkle:channel>beta</sparkle:channel>") + two, u"2"_s);
        row("no safe page", "<item><sparkle:version>3</sparkle:version><link>javascript:x</link></item>", {});
        row("elements of another namespace",
            "<item><sparkle:version>3</sparkle:version><link>https://e.org/f</link>"
            "<atom:link href='https://e.org/feed'/></item>",
            u"3"_s);
        row("not newer", release("1.2"), {});
        row("a version that is none", release(QByteArray(33, '9')) + two, u"2"_s);
    }
    void readsAppcasts()
    {
        QFETCH(const QByteArray, items);
        const auto releases = parseAppcast(feedOf(items));
        QVERIFY(releases);
        const auto update = newestUpdate(*releases, u"1.2"_s);
        QTEST(update ? update->shownVersion : QString(), "found");
    }

    void boundsNotes_data()
    {
        const auto row = table<QByteArray, bool>({"notes", "isRead"});
        row("nested too deep", QByteArray("<b>").repeated(60'000) + QByteArray("</b>").repeated(60'000),
            false);
        row("long", QByteArray(1'000'000, 'x'), true);
        row("nested tags as text", QByteArray("&lt;b>x").repeated(200'000), true);
        row("many elements side by side", QByteArray("<b>x</b>").repeated(60'000), true);
    }
    void boundsNotes()
    {
        QFETCH(const QByteArray, notes);
        const auto releases = parseAppcast(feedOf(release("2", "<description>" + notes + "</description>")));
        QTEST(bool(releases), "isRead");
        if (releases)
            QVERIFY(!releases->constFirst().notes.isEmpty() &&
                    releases->constFirst().notes.size() <= 64 << 10);
    }

    void showsWhatAnAskedCheckFinds_data()
    {
        using Status = SPUUpdater::Status;
        const auto row = table<QByteArray, Status>({"answer", "status"});
        row("newer",
            feedAnswer(release("2", "<sparkle:releaseNotesLink>https://example.org/notes"
                                    "</sparkle:releaseNotesLink>"
                                    "<description>&lt;b&gt;New&lt;/b&gt; things</description>")),
            Status::UpdateFound);
        row("same", feedAnswer(release("1.2")), Status::UpToDate);
        row("cut off", httpAnswer(feedOf({}).first(90)), Status::Failed);
        row("no feed", httpAnswer("<html/>"), Status::Failed);
        row("endless", feedAnswer(release("2", QByteArray(5 << 20, ' '))), Status::Failed);
        row("not there", httpAnswer({}, "404 Not Found"), Status::Failed);
    }
    void showsWhatAnAskedCheckFinds()
    {
        QFETCH(const QByteArray, answer);
        QFETCH(const SPUUpdater::Status, status);
        const TestServer server(TestServer::always(answer));
        SPUUpdater updater(settings(server));
        QVERIFY(updater.canCheckForUpdates());
        updater.checkForUpdates();
        QVERIFY(updater.isShown());
        QCOMPARE(updater.status(), SPUUpdater::Status::Checking);
        const QSignalSpy ends(updater.findChild<QNetworkReply *>(), &QNetworkReply::finished);
        QTRY_COMPARE(updater.status(), status);
        QCOMPARE(ends.count(), 1);
        QVERIFY(updater.isShown());
        QCOMPARE(updater.message().isEmpty(), status != SPUUpdater::Status::Failed);
        if (status == SPUUpdater::Status::UpdateFound) {
            QCOMPARE(updater.notes(), u"New things"_s);
            QCOMPARE(updater.notesPage(), QUrl(u"https://example.org/notes"_s));
            QCOMPARE(updater.downloadPage(), QUrl(u"https://example.org/get"_s));
        }
    }

    void checksByItselfOnceADayAndQuietly_data()
    {
        const auto row = table<int, QByteArray, int, bool>({"hoursAgo", "version", "requests", "isShown"});
        row("first time, newer", -1, "2", 1, true);
        row("a day ago, nothing new", 25, "1", 1, false);
        row("an hour ago", 1, "2", 0, false);
    }
    void checksByItselfOnceADayAndQuietly()
    {
        QFETCH(const int, hoursAgo);
        QFETCH(const QByteArray, version);
        QFETCH(const int, requests);
        QFETCH(const bool, isShown);
        const TestServer server(TestServer::always(feedAnswer(release(version))));
        if (hoursAgo >= 0) {
            QSettings(settings(server).stateFile, QSettings::IniFormat)
                .setValue(u"lastUpdateCheck"_s, QDateTime::currentDateTimeUtc().addSecs(-3600 * hoursAgo));
        }
        SPUUpdater updater(settings(server));
        updater.start(std::chrono::milliseconds(0));
        QTest::qWait(300);
        QCOMPARE(server.requests().size(), requests);
        QCOMPARE(updater.isShown(), isShown);
    }

    void showsACheckThatIsUnderWayAlready_data()
    {
        using Status = SPUUpdater::Status;
        const auto row = table<QByteArray, bool, Status, bool>({"version", "isHidden", "outcome", "isShown"});
        row("nothing new", "1", false, Status::UpToDate, true);
        row("nothing new, hidden meanwhile", "1", true, Status::Idle, false);
        row("newer, hidden meanwhile", "2", true, Status::UpdateFound, true);
    }
    void showsACheckThatIsUnderWayAlready()
    {
        QFETCH(const QByteArray, version);
        QFETCH(const bool, isHidden);
        QFETCH(const SPUUpdater::Status, outcome);
        QFETCH(const bool, isShown);
        QPointer<QTcpSocket> waiting;
        const TestServer server([&waiting](QTcpSocket *socket) { waiting = socket; });
        SPUUpdater updater(settings(server));
        updater.start(std::chrono::milliseconds(0));
        QTRY_VERIFY(waiting);
        QCOMPARE(updater.status(), SPUUpdater::Status::Idle);
        updater.checkForUpdates();
        QVERIFY(updater.isShown());
        QCOMPARE(updater.status(), SPUUpdater::Status::Checking);
        if (isHidden)
            updater.dismiss();
        TestServer::always(feedAnswer(release(version)))(waiting);
        QTRY_COMPARE(updater.status(), outcome);
        QCOMPARE(updater.isShown(), isShown);
        QCOMPARE(server.requests().size(), 1);
    }

    void survivesBeingDestroyedDuringACheck()
    {
        const TestServer server([](QTcpSocket *) {});
        auto updater = std::make_unique<SPUUpdater>(settings(server));
        updater->checkForUpdates();
        QTRY_COMPARE(server.requests().size(), 1);
        const QSignalSpy changes(updater.get(), &SPUUpdater::statusChanged);
        const QSignalSpy ends(updater->findChild<QNetworkReply *>(), &QNetworkReply::finished);
        updater.reset();
        QCOMPARE(ends.count(), 1);
        QCOMPARE(changes.count(), 0);
    }
};

QTEST_MAIN(UpdaterTest)
#include "tst_updater.moc"
