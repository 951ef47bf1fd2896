#include "render/work_crew.h"

#include <QtTest/QTest>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace mosslantern;

namespace {

constexpr int pieces = 100;

/// Work of which each piece starts another, as slides start their bands; whether all of it was done, and the
/// first before the later.
bool worksAll(int size)
{
    WorkCrew crew(size);
    std::atomic<int> done = 0;
    std::atomic<bool> isLast = false;
    for (int i = 0; i < pieces; ++i) {
        const auto piece = [&] {
            if (++done == 2 * pieces)
                isLast = true;
        };
        crew.start(
            [&, piece] {
                crew.start(piece, WorkCrew::Order::later);
                piece();
            },
            WorkCrew::Order::first);
    }
    crew.waitFor(isLast);
    crew.waitForAll();
    return done == 2 * pieces;
}

} // namespace

class WorkCrewTest : public QObject
{
    Q_OBJECT

private slots:
    void worksWithoutThreads()
    {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(20);
            const rlimit memory{1, 1};
            ::setrlimit(RLIMIT_AS, &memory);
            // Stacks of threads that there were before are used again.
            bool hasThreads = true;
            while (hasThreads) {
                try {
                    std::thread([] { ::pause(); }).detach();
                } catch (const std::exception &) {
                    hasThreads = false;
                }
            }
            ::_exit(worksAll(2) ? 0 : 1);
        }
        int status = -1;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY2(WIFEXITED(status) && WEXITSTATUS(status) == 0, qPrintable(QString::number(status)));
    }

    void doesAllWork()
    {
        for (const int size : {-1, 1, 3})
            QVERIFY(worksAll(size));
    }
};

QTEST_GUILESS_MAIN(WorkCrewTest)
#include "tst_work_crew.moc"
