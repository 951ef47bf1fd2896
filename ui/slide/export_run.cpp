#include "ui/slide/export_run.h"

#include "render/export/bulk_exporter.h"
#include "ui/common/file_panels.h"

#include <chrono>

namespace mosslantern {

using namespace std::chrono_literals;

namespace {

/// Long enough to look up from something else and read a line.
constexpr auto outcomeTime = 8s;

} // namespace

ExportRun::ExportRun(QObject *parent)
    : QObject(parent)
{
    m_outcome.setSingleShot(true);
    connect(&m_outcome, &QTimer::timeout, this, &ExportRun::forgetOutcome);
}

QCoro::Task<Result<>> ExportRun::begin(QPointer<ExportRun> self, QPointer<ScreenContext> context, int total,
                                       Write write)
{
    const RunningWork::Piece piece(context->work(), RunningWork::Kind::exporting);
    BulkExporter exporter([context](const QString &path) {
        if (context)
            context->filePanels().openFolder(path);
    });
    int written = 0;
    int leftOut = 0;
    connect(&exporter, &BulkExporter::progressed, &exporter,
            [&](int writtenNow, int leftOutNow, int totalNow) {
                if (self)
                    self->add(writtenNow - written, leftOutNow - leftOut, totalNow - total);
                written = writtenNow;
                leftOut = leftOutNow;
                total = totalNow;
            });
    if (self)
        self->start(total);
    const Result<> outcome = co_await write(exporter);
    if (self)
        self->end();
    co_return outcome;
}

void ExportRun::forgetOutcome()
{
    m_outcome.stop();
    clear();
    emit isTellingOutcomeChanged();
}

void ExportRun::add(int written, int leftOut, int total)
{
    m_written += written;
    m_leftOut += leftOut;
    m_total += total;
    emit progressed();
}

void ExportRun::start(int total)
{
    if (isTellingOutcome())
        forgetOutcome();
    add(0, 0, total);
    if (m_running++ == 0)
        emit isRunningChanged();
}

void ExportRun::end()
{
    if (--m_running > 0)
        return;
    if (m_leftOut > 0) {
        m_outcome.start(outcomeTime);
        emit isTellingOutcomeChanged();
    } else {
        clear();
    }
    emit isRunningChanged();
}

} // namespace mosslantern
