#include "render/picture/heif_program.h"

#include "render/picture/picture_errors.h"
#include "render/picture/picture_geometry.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

// What the dynamic linker ends a program with that lacks a library.
constexpr int cannotBeLoaded = 127;

std::unexpected<Error> notStarted(const QString &program, const QString &why)
{
    return fail(u"The program for HEIC and AVIF pictures, %1, could not be started: %2"_s.arg(program, why));
}

// A fresh process has to be given all of its memory, 126 MB for 12 megapixels: in large pages that takes 30
// ms less.
constexpr const char *largePages = "GLIBC_TUNABLES=glibc.malloc.hugetlb=1";

/// Starts `program` with these files as its only ones, beside standard error; 0 or an error of the system.
int start(const QByteArray &program, const char *const *arguments, int input, int output, pid_t &started)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    // Of a group of its own: what is typed at the terminal to interrupt this program must not end that one in
    // the middle of a picture.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setpgroup(&attributes, 0);
    sigset_t none;
    ::sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    std::vector<const char *> environment{largePages};
    for (char **variable = ::environ; *variable; ++variable)
        environment.push_back(*variable);
    environment.push_back(nullptr);
    const int error =
        ::posix_spawn(&started, program.constData(), &files, &attributes,
                      const_cast<char *const *>(arguments), const_cast<char *const *>(environment.data()));
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

/// How the process ended; -1 when somebody else has taken notice of its end.
int waitFor(pid_t process)
{
    int status = -1;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return status;
}

} // namespace

QString heifProgramPath()
{
    // Beside the running program where it was built, apart from what users start where it is installed.
    const QString folder = QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path();
    const QString built = folder + "/mosslantern-heif"_L1;
    const QString installed = folder + "/../libexec/mosslantern/mosslantern-heif"_L1;
    return QFile::exists(built) ? built : installed;
}

Result<MemoryFile::Mapping> runHeifProgram(const QString &program, const char *task, const QByteArray &bytes,
                                           qint64 memory)
{
    auto input = MemoryFile::create("picture");
    auto output = MemoryFile::create("decoded picture");
    if (!input || !output)
        return notStarted(program, qt_error_string(errno));
    if (!input->write(bytes))
        return fail(pictureNeedsTooMuchMemory());

    const QByteArray path = QFile::encodeName(program);
    const QByteArray side = QByteArray::number(longestPictureSide), most = QByteArray::number(memory);
    const char *const arguments[]{path.constData(), task, side.constData(), most.constData(), nullptr};
    pid_t process = 0;
    if (const int error = start(path, arguments, input->descriptor(), output->descriptor(), process))
        return notStarted(program, qt_error_string(error));
    const int status = waitFor(process);
    if (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS)
        return output->sealed();
    if (WIFEXITED(status) && WEXITSTATUS(status) == cannotBeLoaded)
        return notStarted(program, u"it lacks a library."_s);
    // The system kills what has taken its last memory.
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return fail(pictureNeedsTooMuchMemory());
    return fail(damagedPicture());
}

} // namespace mosslantern
