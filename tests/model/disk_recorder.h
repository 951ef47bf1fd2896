#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <map>
#include <set>
#include <vector>

namespace mosslantern {

/// One thing that a program did to the files below a folder. Paths are relative to that folder.
struct DiskOperation
{
    enum class Kind { createFile, createFolder, rename, link, remove, write, truncate, sync };

    Kind kind;
    QString path = {};     // of names
    QString target = {};   // of rename and link
    int node = 0;          // the file or folder: the same whatever its name, 0 for the folder itself
    qint64 offset = 0;     // of write; the new size for truncate
    QByteArray bytes = {}; // of write
};

/// Takes down all that this process does below a folder, which must be empty, while it exists. The program
/// that links it has its system calls go through it; outside of its lifetime nothing is really synced, to
/// save time.
class DiskRecorder
{
public:
    explicit DiskRecorder(const QString &folder);
    ~DiskRecorder();
    Q_DISABLE_COPY_MOVE(DiskRecorder)

    std::vector<DiskOperation> operations() const;
};

/// What a power cut makes of operations that nobody has waited for.
enum class Unsynced {
    kept,         // as if only the program had ended
    lost,         // names and contents
    contentsLost, // but names are there
    torn,         // some contents, and halves of them
};

/// Makes what is on the disk when the power fails after the first `count` operations, in an empty folder.
void replay(const std::vector<DiskOperation> &operations, size_t count, Unsynced unsynced,
            const QString &folder);

} // namespace mosslantern
