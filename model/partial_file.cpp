#include "model/partial_file.h"

#include <QtCore/QUuid>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto prefix = ".mosslantern-"_L1;
constexpr auto suffix = ".partial"_L1;

/// Whether the file is ours alone from now on; also where files cannot be locked at all.
bool lockNew(int file)
{
    struct stat status = {};
    return (::flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) && ::fstat(file, &status) == 0 &&
           status.st_nlink > 0;
}

QByteArray pathIn(const QString &folder, const QString &name)
{
    return QFile::encodeName(folder + u'/' + name);
}

bool isPartial(QByteArrayView name)
{
    return name.startsWith(prefix.latin1()) && name.endsWith(suffix.latin1()) &&
           !QUuid(QLatin1StringView(name.sliced(prefix.size()).chopped(suffix.size()))).isNull();
}

/// Removes the file unless somebody still has it open to write it.
void removeIfAbandoned(int folder, const char *name)
{
    const int file = ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat status = {};
    // Unlinked while it is locked: nobody can begin to write it meanwhile.
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
        ::flock(file, LOCK_EX | LOCK_NB) == 0) {
        for (const std::string log : {"-journal", "-wal"})
            ::unlinkat(folder, (name + log).c_str(), 0);
        ::unlinkat(folder, name, 0);
    }
    ::close(file);
}

} // namespace

PartialFile::PartialFile(const QString &folder, mode_t mode)
    : m_folder(folder)
{
    // Another program that cleans up may take a new file for an abandoned one before it is locked.
    for (int attempt = 0; attempt < 5 && !isOpen(); ++attempt) {
        m_path = QFile::encodeName(folder + u'/' + prefix + randomName() + suffix);
        m_descriptor = ::open(m_path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_descriptor < 0)
            return;
        if (!lockNew(m_descriptor))
            ::close(std::exchange(m_descriptor, -1));
    }
}

PartialFile::~PartialFile()
{
    if (!isOpen())
        return;
    ::unlink(m_path.constData());
    ::close(m_descriptor);
}

bool PartialFile::commit(const QString &name)
{
    const QByteArray target = pathIn(m_folder, name);
    return ::rename(m_path.constData(), target.constData()) == 0 && close();
}

bool PartialFile::commitNew(const QString &name)
{
    const QByteArray target = pathIn(m_folder, name);
    if (::renameat2(AT_FDCWD, m_path.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return close();
    // Not every file system can do that at once; there, nobody else is at work but by rare chance.
    return errno == EINVAL && commit(name);
}

bool PartialFile::close()
{
    return ::close(std::exchange(m_descriptor, -1)) == 0;
}

void removeAbandonedFiles(const QString &folder)
{
    DIR *const entries = ::opendir(QFile::encodeName(folder).constData());
    if (!entries)
        return;
    while (const dirent *const entry = ::readdir(entries)) {
        if (isPartial(entry->d_name))
            removeIfAbandoned(::dirfd(entries), entry->d_name);
    }
    ::closedir(entries);
}

QString randomName()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

} // namespace mosslantern
