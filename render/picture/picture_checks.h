#pragma once

#include "model/error.h"
#include "render/work_crew.h"

#include <QtCore/QStringList>

#include <atomic>
#include <functional>
#include <vector>

namespace mosslantern {

/// Finds out which of some files are pictures that can be shown: several threads decode them, much reduced,
/// in their order.
class PictureChecks
{
public:
    /// `onChecked`, if there is one, is called after each file on the thread that checked it.
    explicit PictureChecks(QStringList files, std::function<void()> onChecked = {});
    /// What has not begun by then is not checked any more.
    ~PictureChecks();
    PictureChecks(const PictureChecks &) = delete;
    PictureChecks &operator=(const PictureChecks &) = delete;

    const QStringList &files() const { return m_files; }

    /// Whether result() would not wait for another thread.
    bool isKnown(qsizetype index) const;
    /// Why the file of that number cannot be shown. Waits until that is known; one thread asks.
    const Result<> &result(qsizetype index);

private:
    struct Check
    {
        Result<> result;
        std::atomic<bool> isDone = false;
    };

    void check(qsizetype index);

    const QStringList m_files;
    const std::function<void()> m_onChecked;
    std::atomic<bool> m_ends = false;
    std::vector<Check> m_checks;
    WorkCrew m_crew; // uses all of the above
};

} // namespace mosslantern
