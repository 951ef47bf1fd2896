#pragma once

#include "model/error.h"
#include "ui/common/screen_context.h"

#include <QCoroTask>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <functional>

namespace mosslantern {

class BulkExporter;

/// The exports that a screen has begun: those that are running, taken together, and what has become of them.
class ExportRun : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen has it.")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged)
    Q_PROPERTY(int written READ written NOTIFY progressed)
    Q_PROPERTY(int leftOut READ leftOut NOTIFY progressed)
    Q_PROPERTY(int total READ total NOTIFY progressed)
    Q_PROPERTY(bool isTellingOutcome READ isTellingOutcome NOTIFY isTellingOutcomeChanged)

public:
    explicit ExportRun(QObject *parent = nullptr);

    /// Begins to write the slides of an export; `total` is how many there are. It goes on when the screen,
    /// and `self` with it, is left.
    using Write = std::function<QCoro::Task<Result<>>(BulkExporter &)>;
    static QCoro::Task<Result<>> begin(QPointer<ExportRun> self, QPointer<ScreenContext> context, int total,
                                       Write write);

    bool isRunning() const { return m_running > 0; }

    /// Of all exports that are running, or were while the outcome is told: slides that are written, slides
    /// that could not be written, and slides in all.
    int written() const { return m_written; }
    int leftOut() const { return m_leftOut; }
    int total() const { return m_total; }

    /// Whether the counts are those of exports that have ended and left slides out: until forgetOutcome(),
    /// for a few seconds, or until another export begins.
    bool isTellingOutcome() const { return m_outcome.isActive(); }
    Q_INVOKABLE void forgetOutcome();

signals:
    void isRunningChanged();
    void progressed();
    void isTellingOutcomeChanged();

private:
    void add(int written, int leftOut, int total);
    void clear() { add(-m_written, -m_leftOut, -m_total); }
    void start(int total);
    void end();

    int m_running = 0;
    int m_written = 0;
    int m_leftOut = 0;
    int m_total = 0;
    QTimer m_outcome;
};

} // namespace mosslantern
