#include "tests/model/test_library.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr int slidesEach = 5;

/// Saves for ever: adds, changes and removes slideshows, all in one save, and reports each save that is done.
[[noreturn]] void keepSaving(TestLibrary &library, int reports, int round)
{
    Store &store = library.store();
    Asset *const asset = store.all<Asset>().empty() ? library.addAsset(u"a"_s) : store.all<Asset>()[0];
    for (;; ++round) {
        const QString text = QString::number(round);
        library.addSlideshow(asset, QStringList(slidesEach, text));
        for (Slide *slide : store.all<Slide>())
            slide->setText(text);
        if (store.all<Slideshow>().size() > 10)
            store.remove(store.all<Slideshow>()[0]);
        if (!store.flush() || ::write(reports, &round, sizeof round) != sizeof round)
            ::_exit(1);
    }
}

} // namespace

class StoreCrashTest : public QObject
{
    Q_OBJECT

private slots:
    void everySaveIsWholeOrAbsent()
    {
        TestLibrary library;
        QRandomGenerator random(20);
        int last = 0;
        for (int crash = 0; crash < 40; ++crash) {
            int reports[2];
            QCOMPARE(::pipe(reports), 0);
            const pid_t child = ::fork();
            if (child == 0)
                keepSaving(library, reports[1], last + 1);
            ::close(reports[1]);
            // On a busy machine as well, the kill comes before, in or between the saves.
            int round = 0;
            for (int saved = random.bounded(4); saved > 0; --saved) {
                QCOMPARE(::read(reports[0], &round, sizeof round), ssize_t(sizeof round));
                last = round;
            }
            ::usleep(random.bounded(20'000));
            QCOMPARE(::kill(child, SIGKILL), 0);
            int status = 0;
            QCOMPARE(::waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status));
            while (::read(reports[0], &round, sizeof round) == sizeof round)
                last = round;
            ::close(reports[0]);

            const Store &store = library.store();
            int stored = 0;
            for (const Slideshow *slideshow : store.all<Slideshow>()) {
                QCOMPARE(slideshow->slides().size(), slidesEach);
                for (const Slide *slide : slideshow->slides()) {
                    QCOMPARE(slide->text(), store.all<Slide>()[0]->text());
                    QCOMPARE(slide->asset(), store.all<Asset>()[0]);
                    stored = slide->text().toInt();
                }
            }
            QVERIFY2(stored == last || stored == last + 1,
                     qPrintable(u"%1 after %2"_s.arg(stored).arg(last)));
            last = stored;
            library.close();
        }
        QVERIFY(last > 40);
    }

    void firstOpeningMayBeCutShort()
    {
        for (int microseconds = 0; microseconds < 12'000; microseconds += 400) {
            TestLibrary library;
            const pid_t child = ::fork();
            if (child == 0) {
                library.store();
                ::pause();
            }
            ::usleep(static_cast<useconds_t>(microseconds));
            QCOMPARE(::kill(child, SIGKILL), 0);
            QCOMPARE(::waitpid(child, nullptr, 0), child);
            QCOMPARE(library.openingError(), QString());
        }
    }
};

QTEST_GUILESS_MAIN(StoreCrashTest)
#include "tst_store_crash.moc"
