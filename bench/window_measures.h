#pragma once

#include "app/gui/mosslantern_app.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QMutex>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// The application on the library in this folder, with its state there too and without updates.
StartOptions optionsFor(const QString &folder);

/// The first item of this name in the tree below `item`, or null.
QQuickItem *findItem(QQuickItem *item, const QString &name);

/// Ends the process at once, so that nothing that takes time at the end counts.
[[noreturn]] void finish();

/// The times between the frames of a window from now on.
class Frames : public QObject
{
public:
    explicit Frames(QQuickWindow &window);

    /// Since the first moment.
    double seconds() const { return static_cast<double>(m_clock.nsecsElapsed()) / 1e9; }

    /// Prints how many there were, how long they took, and the peak of the process's memory.
    void report();

private:
    QElapsedTimer m_clock;
    QMutex m_mutex;
    double m_last = 0;
    QList<double> m_frames;
};

/// Scrolls a Flickable from its beginning to its end in that time, reports the frames and ends the process.
void scrollThrough(QQuickWindow &window, QQuickItem &area, double seconds);

} // namespace mosslantern
