#include "model/file_copy.h"

#include "model/folder.h"
#include "model/partial_file.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// An open file, closed at the end of its scope.
class File
{
public:
    File(const QString &path, int flags)
        : m_descriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC))
    {}
    ~File()
    {
        if (isOpen())
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(File)

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// False with errno set when a byte could not be copied.
bool copyBytes(int from, int to)
{
    if (::ioctl(to, FICLONE, from) == 0)
        return true;
    std::vector<char> buffer(size_t{256} * 1024);
    while (true) {
        const ssize_t count = ::read(from, buffer.data(), buffer.size());
        if (count <= 0)
            return count == 0;
        for (ssize_t done = 0; done < count;) {
            const ssize_t written = ::write(to, buffer.data() + done, static_cast<size_t>(count - done));
            if (written < 0)
                return false;
            done += written;
        }
    }
}

std::unexpected<Error> failure(const QString &sentence, const QString &path, int error)
{
    return fail(sentence.arg(path, qt_error_string(error)));
}

} // namespace

Result<> copyIntoFolder(const QString &from, const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return fail(u"There is no documents folder."_s);
    if (const Result<> made = makeFolder(folder); !made)
        return made;
    const QString target = folder + u'/' + name;
    PartialFile copy(folder, S_IRUSR | S_IWUSR);
    if (const Result<> copied = copyInto(copy, from, target); !copied)
        return copied;
    // Begun now, writing to the disk takes no time when somebody asks for it.
    ::sync_file_range(copy.descriptor(), 0, 0, SYNC_FILE_RANGE_WRITE);
    if (!copy.commit(name))
        return failure(u"“%1” could not be written: %2"_s, target, errno);
    return {};
}

Result<> copyInto(PartialFile &copy, const QString &from, const QString &target)
{
    if (!copy.isOpen())
        return failure(u"“%1” could not be written: %2"_s, target, errno);
    // Without O_NONBLOCK, opening a named pipe would wait for a writer.
    const File source(from, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.descriptor(), &status) != 0)
        return failure(u"“%1” could not be read: %2"_s, from, errno);
    if (!S_ISREG(status.st_mode))
        return failure(u"“%1” could not be read: %2"_s, from, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    if (!copyBytes(source.descriptor(), copy.descriptor()))
        return failure(u"“%1” could not be written: %2"_s, target, errno);
    return {};
}

QString uniqueNameLike(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return randomName() + u'.' + (dot > 0 ? name.mid(dot + 1) : QString());
}

} // namespace mosslantern
