#include "tests/model/disk_recorder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <mutex>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

using Kind = DiskOperation::Kind;

struct Recording
{
    std::string folder;
    std::vector<DiskOperation> operations = {};
    std::map<ino_t, int> nodes = {};
    int lastNode = 0;
};

std::recursive_mutex mutex;
Recording *recording = nullptr;

template <typename Function>
Function *original(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

/// Relative to the folder, empty for the folder itself; null when it is elsewhere or nothing is recorded.
QString pathBelow(const char *path)
{
    if (!recording)
        return {};
    if (path + std::string("/") == recording->folder)
        return u""_s;
    if (std::string_view(path).substr(0, recording->folder.size()) != recording->folder)
        return {};
    return QFile::decodeName(path + recording->folder.size());
}

QString pathOf(int file)
{
    char path[PATH_MAX + 1] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    return recording && ::readlink(link.c_str(), path, PATH_MAX) > 0 ? pathBelow(path) : QString();
}

int nodeOf(int file)
{
    struct stat status = {};
    ::fstat(file, &status);
    return recording->nodes[status.st_ino];
}

void note(DiskOperation operation)
{
    recording->operations.push_back(std::move(operation));
}

void noteNew(Kind kind, const QString &path, const char *fullPath)
{
    struct stat status = {};
    ::stat(fullPath, &status);
    const int node = recording->nodes[status.st_ino] = ++recording->lastNode;
    note({.kind = kind, .path = path, .node = node});
}

int openFile(int folder, const char *path, int flags, mode_t mode)
{
    static auto *const openAt = original<int(int, const char *, int, ...)>("openat64");
    const std::scoped_lock lock(mutex);
    const QString below = folder == AT_FDCWD && (flags & O_CREAT) ? pathBelow(path) : QString();
    const bool isNew = !below.isNull() && ::access(path, F_OK) != 0;
    const int file = openAt(folder, path, flags, mode);
    if (file >= 0 && isNew)
        noteNew(Kind::createFile, below, path);
    return file;
}

ssize_t noteWritten(int file, const void *bytes, ssize_t written, off_t offset)
{
    if (written > 0 && !pathOf(file).isNull())
        note({.kind = Kind::write,
              .node = nodeOf(file),
              .offset = offset,
              .bytes = QByteArray(static_cast<const char *>(bytes), written)});
    return written;
}

int syncFile(int file, const char *name)
{
    {
        const std::scoped_lock lock(mutex);
        if (!recording)
            return 0;
    }
    const int result = original<int(int)>(name)(file);
    const std::scoped_lock lock(mutex);
    if (result == 0 && !pathOf(file).isNull())
        note({.kind = Kind::sync, .node = nodeOf(file)});
    return result;
}

int truncateFile(int file, off_t size)
{
    static auto *const truncate = original<int(int, off_t)>("ftruncate64");
    const std::scoped_lock lock(mutex);
    const int result = truncate(file, size);
    if (result == 0 && !pathOf(file).isNull())
        note({.kind = Kind::truncate, .node = nodeOf(file), .offset = size});
    return result;
}

mode_t modeFrom(int flags, va_list arguments)
{
    return flags & O_CREAT ? static_cast<mode_t>(va_arg(arguments, int)) : 0;
}

} // namespace

} // namespace mosslantern

// The system calls, in place of those of the C library.
using namespace mosslantern;

#define MOSSLANTERN_OPEN(name)                                                                               \
    extern "C" int name(const char *path, int flags, ...)                                                    \
    {                                                                                                        \
        va_list arguments;                                                                                   \
        va_start(arguments, flags);                                                                          \
        const mode_t mode = modeFrom(flags, arguments);                                                      \
        va_end(arguments);                                                                                   \
        return openFile(AT_FDCWD, path, flags, mode);                                                        \
    }
MOSSLANTERN_OPEN(open)
MOSSLANTERN_OPEN(open64)

extern "C" ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const next = original<ssize_t(int, const void *, size_t)>("write");
    const std::scoped_lock lock(mutex);
    const off_t offset = recording ? ::lseek(file, 0, SEEK_CUR) : 0;
    return noteWritten(file, bytes, next(file, bytes, count), offset);
}

extern "C" ssize_t pwrite64(int file, const void *bytes, size_t count, off_t offset)
{
    static auto *const next = original<ssize_t(int, const void *, size_t, off_t)>("pwrite64");
    const std::scoped_lock lock(mutex);
    return noteWritten(file, bytes, next(file, bytes, count, offset), offset);
}

extern "C" ssize_t pwrite(int file, const void *bytes, size_t count, off_t offset)
{
    return pwrite64(file, bytes, count, offset);
}

extern "C" int ftruncate(int file, off_t size) noexcept
{
    return truncateFile(file, size);
}

extern "C" int ftruncate64(int file, off_t size) noexcept
{
    return truncateFile(file, size);
}

extern "C" int fsync(int file)
{
    return syncFile(file, "fsync");
}

extern "C" int fdatasync(int file)
{
    return syncFile(file, "fdatasync");
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    static auto *const next = original<int(const char *, const char *)>("rename");
    const std::scoped_lock lock(mutex);
    const int result = next(from, to);
    if (const QString path = pathBelow(from); result == 0 && !path.isNull())
        note({.kind = Kind::rename, .path = path, .target = pathBelow(to)});
    return result;
}

extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
                         unsigned flags) noexcept
{
    static auto *const next = original<int(int, const char *, int, const char *, unsigned)>("renameat2");
    const std::scoped_lock lock(mutex);
    const int result = next(fromFolder, from, toFolder, to, flags);
    if (const QString path = pathBelow(from); result == 0 && !path.isNull())
        note({.kind = Kind::rename, .path = path, .target = pathBelow(to)});
    return result;
}

extern "C" int link(const char *from, const char *to) noexcept
{
    static auto *const next = original<int(const char *, const char *)>("link");
    const std::scoped_lock lock(mutex);
    const int result = next(from, to);
    if (const QString path = pathBelow(from); result == 0 && !path.isNull())
        note({.kind = Kind::link, .path = path, .target = pathBelow(to)});
    return result;
}

extern "C" int unlink(const char *name) noexcept
{
    static auto *const next = original<int(const char *)>("unlink");
    const std::scoped_lock lock(mutex);
    const int result = next(name);
    if (const QString path = pathBelow(name); result == 0 && !path.isNull())
        note({.kind = Kind::remove, .path = path});
    return result;
}

extern "C" int mkdir(const char *name, mode_t mode) noexcept
{
    static auto *const next = original<int(const char *, mode_t)>("mkdir");
    const std::scoped_lock lock(mutex);
    const int result = next(name, mode);
    if (const QString path = pathBelow(name); result == 0 && !path.isNull())
        noteNew(Kind::createFolder, path, name);
    return result;
}

/// Shared data would pass by unseen.
extern "C" int ioctl(int file, unsigned long request, ...) noexcept
{
    static auto *const next = original<int(int, unsigned long, ...)>("ioctl");
    va_list arguments;
    va_start(arguments, request);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    if (request == FICLONE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return next(file, request, argument);
}

namespace mosslantern {

namespace {

using Names = std::map<QString, int>; // in one folder

struct Node
{
    bool isFolder = false;
    Names names = {};
    Names syncedNames = {};
    QByteArray contents = {};
    QByteArray syncedContents = {};
    std::vector<const DiskOperation *> pending = {}; // writes and truncations since the last sync
};

class Disk
{
public:
    void apply(const DiskOperation &operation)
    {
        switch (operation.kind) {
        case Kind::createFile:
        case Kind::createFolder:
            m_nodes[operation.node].isFolder = operation.kind == Kind::createFolder;
            nameIn(operation.path) = operation.node;
            break;
        case Kind::rename:
            nameIn(operation.target) = nameIn(operation.path);
            removeName(operation.path);
            break;
        case Kind::link:
            nameIn(operation.target) = nameIn(operation.path);
            break;
        case Kind::remove:
            removeName(operation.path);
            break;
        case Kind::write:
        case Kind::truncate:
            change(m_nodes[operation.node].contents, operation, operation.bytes.size());
            m_nodes[operation.node].pending.push_back(&operation);
            break;
        case Kind::sync: {
            Node &node = m_nodes[operation.node];
            node.syncedNames = node.names;
            node.syncedContents = node.contents;
            node.pending.clear();
            break;
        }
        }
    }

    void writeTo(const QString &folder, Unsynced unsynced, QRandomGenerator &random, int at = 0)
    {
        QDir().mkpath(folder);
        const Node &node = m_nodes[at];
        for (const auto &[name, number] : unsynced == Unsynced::lost ? node.syncedNames : node.names) {
            const QString path = folder + u'/' + name;
            if (m_nodes[number].isFolder) {
                writeTo(path, unsynced, random, number);
            } else {
                QFile file(path);
                if (!file.open(QIODevice::WriteOnly))
                    qFatal("cannot write %s", qPrintable(path));
                file.write(contentsOf(m_nodes[number], unsynced, random));
            }
        }
    }

private:
    static void change(QByteArray &contents, const DiskOperation &operation, qsizetype count)
    {
        if (operation.kind == Kind::truncate) {
            contents.resize(operation.offset, '\0');
            return;
        }
        if (contents.size() < operation.offset + count)
            contents.append(QByteArray(operation.offset + count - contents.size(), '\0'));
        contents.replace(operation.offset, count, operation.bytes.first(count));
    }

    static QByteArray contentsOf(const Node &node, Unsynced unsynced, QRandomGenerator &random)
    {
        if (unsynced == Unsynced::kept)
            return node.contents;
        QByteArray contents = node.syncedContents;
        if (unsynced == Unsynced::torn) {
            for (const DiskOperation *operation : node.pending) {
                constexpr qsizetype sector = 512;
                const int fate = random.bounded(3);
                if (fate == 1)
                    change(contents, *operation, operation->bytes.size());
                else if (fate == 2 && operation->kind == Kind::write)
                    change(contents, *operation, operation->bytes.size() / 2 / sector * sector);
            }
        }
        return contents;
    }

    Names &folderOf(const QString &path)
    {
        int at = 0;
        const QStringList parts = path.split(u'/');
        for (const QString &part : parts.first(parts.size() - 1))
            at = m_nodes[at].names.at(part);
        return m_nodes[at].names;
    }

    int &nameIn(const QString &path) { return folderOf(path)[QFileInfo(path).fileName()]; }
    void removeName(const QString &path) { folderOf(path).erase(QFileInfo(path).fileName()); }

    std::map<int, Node> m_nodes{{0, {.isFolder = true}}};
};

} // namespace

DiskRecorder::DiskRecorder(const QString &folder)
{
    auto *const made = new Recording{.folder = QFile::encodeName(folder).toStdString() + '/'};
    struct stat status = {};
    ::stat(QFile::encodeName(folder).constData(), &status);
    made->nodes[status.st_ino] = 0;
    const std::scoped_lock lock(mutex);
    recording = made;
}

DiskRecorder::~DiskRecorder()
{
    const std::scoped_lock lock(mutex);
    delete std::exchange(recording, nullptr);
}

std::vector<DiskOperation> DiskRecorder::operations() const
{
    const std::scoped_lock lock(mutex);
    return recording->operations;
}

void replay(const std::vector<DiskOperation> &operations, size_t count, Unsynced unsynced,
            const QString &folder)
{
    Disk disk;
    for (size_t i = 0; i < count; ++i)
        disk.apply(operations[i]);
    QRandomGenerator random(static_cast<quint32>(count));
    disk.writeTo(folder, unsynced, random);
}

} // namespace mosslantern
