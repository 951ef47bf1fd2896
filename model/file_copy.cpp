#include "model/file_copy.h"

#include <QtCore/QFile>
#include <QtCore/QScopeGuard>
#include <QtCore/QUuid>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString randomName()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

/// An open file, closed at the end of its scope.
class File
{
public:
    File(const QString &path, int flags)
        : m_descriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR))
    {}
    ~File() { close(); }
    Q_DISABLE_COPY_MOVE(File)

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    bool close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor;
};

/// Both files are open; false with errno set when a byte could not be copied.
bool copyBytes(const File &from, const File &to)
{
    if (::ioctl(to.descriptor(), FICLONE, from.descriptor()) == 0)
        return true;
    std::vector<char> buffer(size_t{256} * 1024);
    while (true) {
        const ssize_t count = ::read(from.descriptor(), buffer.data(), buffer.size());
        if (count <= 0)
            return count == 0;
        for (ssize_t done = 0; done < count;) {
            const ssize_t written =
                ::write(to.descriptor(), buffer.data() + done, static_cast<size_t>(count - done));
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
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), error);
    if (error)
        return failure(u"The folder “%1” could not be created: %2"_s, folder, error.value());

    // Without O_NONBLOCK, opening a named pipe would wait for a writer.
    const File source(from, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.descriptor(), &status) != 0)
        return failure(u"“%1” could not be read: %2"_s, from, errno);
    if (!S_ISREG(status.st_mode))
        return failure(u"“%1” could not be read: %2"_s, from, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);

    const QString partial = folder + "/."_L1 + randomName() + ".partial"_L1;
    const QByteArray encodedPartial = QFile::encodeName(partial);
    const QString target = folder + u'/' + name;
    File copy(partial, O_WRONLY | O_CREAT | O_EXCL);
    if (!copy.isOpen())
        return failure(u"“%1” could not be written: %2"_s, target, errno);
    auto removePartial = qScopeGuard([&] { ::unlink(encodedPartial.constData()); });
    if (!copyBytes(source, copy) || !copy.close() ||
        ::rename(encodedPartial.constData(), QFile::encodeName(target).constData()) != 0)
        return failure(u"“%1” could not be written: %2"_s, target, errno);
    removePartial.dismiss();
    return {};
}

QString uniqueNameLike(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return randomName() + u'.' + (dot > 0 ? name.mid(dot + 1) : QString());
}

} // namespace mosslantern
