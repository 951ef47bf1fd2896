#include "model/file_sync.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <system_error>
#include <thread>
#include <vector>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// A disk does several at once better than one after another: file systems write their journal once for all
/// that wait for it.
constexpr qsizetype mostThreads = 8;

/// 0, or why the file or folder is perhaps not on the disk.
int sync(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return errno == ENOENT ? 0 : errno;
    // Some file systems can do that with files only.
    const int error = ::fsync(file) == 0 || errno == EINVAL ? 0 : errno;
    ::close(file);
    return error;
}

Result<> syncAll(const QStringList &paths)
{
    std::atomic<qsizetype> next = 0;
    std::atomic<int> error = 0;
    std::atomic<qsizetype> failed = 0;
    const auto work = [&] {
        for (qsizetype i = next++; i < paths.size() && error == 0; i = next++) {
            if (const int problem = sync(paths[i])) {
                failed = i;
                error = problem;
            }
        }
    };
    {
        std::vector<std::jthread> helpers;
        try {
            for (qsizetype i = 1; i < std::min(mostThreads, paths.size()); ++i)
                helpers.emplace_back(work);
        } catch (const std::system_error &) {
            // Fewer do as well.
        }
        work();
    }
    if (error != 0)
        return fail(
            u"“%1” could not be written to the disk: %2"_s.arg(paths[failed], qt_error_string(error)));
    return {};
}

} // namespace

Result<> syncToDisk(const QStringList &files)
{
    QSet<QString> folders;
    for (const QString &file : files) {
        const QString folder = QFileInfo(file).path();
        folders << folder << QFileInfo(folder).path(); // which may be new, too
    }
    if (const Result<> synced = syncAll(files); !synced)
        return synced;
    return syncAll(folders.values());
}

} // namespace mosslantern
