#pragma once

#include "render/picture/picture_checks.h"

#include <QtCore/QObject>

#include <deque>
#include <memory>

namespace mosslantern {

class ScreenContext;
class Store;

/// Imports pictures one after another, each once it is known that it can be shown, and reports those that
/// cannot be. Whatever takes long is done in the background: the window never waits. One for each context,
/// and as long-lived, since the user may go to another screen meanwhile.
class PictureIntake : public QObject
{
    Q_OBJECT

public:
    static PictureIntake &of(ScreenContext &context);

    /// After all that was taken before.
    void take(const QStringList &files);

    /// Takes the files and the pictures in the folders of these names, and reports what can be read of
    /// neither. Whether there were any.
    bool takeNamed(const QStringList &names);

private:
    explicit PictureIntake(ScreenContext &context);

    /// Imports the next file if it has been checked, and comes back for the one after it.
    void advance();

    Store &m_store;
    std::deque<std::unique_ptr<PictureChecks>> m_batches;
    qsizetype m_next = 0; // of the first batch
};

} // namespace mosslantern
