#pragma once

#include <QtCore/QObject>

namespace mosslantern {

/// Turns SIGINT, SIGTERM and SIGHUP, while it exists, into a request to end cleanly: work in steps asks
/// isRequested() between them, work in the event loop is told, and decoding stops. A second such signal ends
/// the program at once. Signals that the caller of the program has switched off stay so. At most one at a
/// time.
class Interruption : public QObject
{
    Q_OBJECT

public:
    Interruption();
    ~Interruption() override;

    bool isRequested() const;

    /// `status`, or the exit status that stands for the signal when there was one.
    int exitStatus(int status) const;

signals:
    /// From the event loop, once.
    void requested();
};

} // namespace mosslantern
