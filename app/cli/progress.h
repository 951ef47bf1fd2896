#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>
#include <QtCore/QTimer>

namespace mosslantern {

/// How far some work is, on one line of a terminal that standard error goes to ("12/50 slides"); nothing when
/// it goes elsewhere, or while the work takes less than a second. The line is erased at the end.
class Progress
{
public:
    /// `things`: what is counted.
    explicit Progress(const QString &things);
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    void show(qint64 done, qint64 total);

private:
    QString m_things;
    QElapsedTimer m_clock;
    qint64 m_nextTime;
};

/// A sign of life on the same terms while the event loop waits for something.
class Spinner
{
public:
    explicit Spinner(const QString &text);
    ~Spinner();
    Q_DISABLE_COPY_MOVE(Spinner)

private:
    QTimer m_timer;
    int m_turn = 0;
};

} // namespace mosslantern
