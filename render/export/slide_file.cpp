#include "render/export/slide_file.h"

#include "model/partial_file.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t anyone = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// Replaces the file that `path` names, behind any link, and keeps its rights. The error says why not.
Result<> replaceFile(const QString &path, const EncodedSlide &slide)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    const QFileInfo target(canonical.isEmpty() ? path : canonical);
    struct stat replaced = {};
    const bool replaces = ::stat(QFile::encodeName(target.filePath()).constData(), &replaced) == 0;
    if (replaces && !S_ISREG(replaced.st_mode))
        return fail(qt_error_string(S_ISDIR(replaced.st_mode) ? EISDIR : EINVAL));
    if (replaces && !target.isWritable())
        return fail(qt_error_string(EACCES));

    PartialFile partial(target.path(), anyone);
    QFile file;
    if (!partial.isOpen())
        return fail(qt_error_string(errno));
    if (!file.open(partial.descriptor(), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return fail(file.errorString());
    if (slide.file.isEmpty()) {
        if (const Result<> written = writePng(file, slide.size, slide.bands); !written)
            return written;
    } else if (file.write(slide.file) != slide.file.size()) {
        return fail(file.errorString());
    }
    if (replaces)
        ::fchmod(partial.descriptor(), replaced.st_mode & 0777);
    if (::fdatasync(partial.descriptor()) != 0 || !partial.commit(target.fileName()))
        return fail(qt_error_string(errno));
    return {};
}

} // namespace

std::unexpected<Error> notDrawn(const QString &path, const EncodedSlide &slide)
{
    return fail(u"“%1” could not be written: %2"_s.arg(path, slide.reason()));
}

Result<> writeSlideFile(const QString &path, const EncodedSlide &slide)
{
    if (!slide.isDrawn())
        return notDrawn(path, slide);
    if (const Result<> written = replaceFile(path, slide); !written)
        return fail(u"“%1” could not be written: %2"_s.arg(path, written.error().message));
    return {};
}

} // namespace mosslantern
