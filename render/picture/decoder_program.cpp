#include "render/picture/decoder_program.h"

#include "render/picture/decoder/decoder_answer.h"
#include "render/picture/decoding_stop.h"
#include "render/picture/picture_errors.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
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
    return fail(u"The program that decodes pictures, %1, could not be started: %2"_s.arg(program, why));
}

// A fresh process has to be given all of its memory, 126 MB for 12 megapixels: in large pages that takes 30
// ms less. One heap for all threads takes no addresses that the others do not use.
constexpr const char *allocation = "GLIBC_TUNABLES=glibc.malloc.hugetlb=1:glibc.malloc.arena_max=1";

// Qt otherwise shares conversions among threads; there is a program for each thread already.
constexpr const char *oneThread = "QT_NO_GUI_THREADPOOL=1";

/// Starts `program` with these files as its only ones; 0 or an error of the system.
int start(const QByteArray &program, const QByteArrayList &arguments, int input, int output, pid_t &started)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    // What libraries print would stand between our own lines.
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    // Of a group of its own: what is typed at the terminal to interrupt this program must not end that one in
    // the middle of a picture.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setpgroup(&attributes, 0);
    sigset_t none;
    ::sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    std::vector<char *> words{const_cast<char *>(program.constData())};
    for (const QByteArray &argument : arguments)
        words.push_back(const_cast<char *>(argument.constData()));
    words.push_back(nullptr);
    char *environment[]{const_cast<char *>(allocation), const_cast<char *>(oneThread), nullptr};
    const int error =
        ::posix_spawn(&started, program.constData(), &files, &attributes, words.data(), environment);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

/// Ends `process` once decoding is stopped, and returns no later than it has ended.
void watch(pid_t process)
{
    constexpr int waitingTime = 100; // ms
    const int descriptor = int(::syscall(SYS_pidfd_open, process, 0));
    if (descriptor < 0)
        return; // Then a stop waits for the picture.
    pollfd ended{descriptor, POLLIN, 0};
    while (::poll(&ended, 1, waitingTime) <= 0) {
        if (isDecodingStopped())
            ::kill(process, SIGKILL);
    }
    ::close(descriptor);
}

/// How the process ended; -1 when somebody else has taken notice of its end.
int waitFor(pid_t process)
{
    watch(process);
    int status = -1;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return status;
}

QByteArrayList argumentsOf(const DecoderTask &task)
{
    const auto number = [](qint64 value) { return QByteArray::number(value); };
    const QByteArrayList common{number(int(task.format)), number(task.memory)};
    if (!task.request)
        return QByteArrayList{decoderInfoTask} + common;
    const QSize cover = task.request->cover;
    return QByteArrayList{decoderDecodeTask} + common +
           QByteArrayList{number(cover.width()), number(cover.height()),
                          number(task.request->cropToCover ? 1 : 0)};
}

} // namespace

QString decoderPath()
{
    // Beside the running program where it was built, apart from what users start where it is installed.
    const QString folder = QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path();
    const QString built = folder + "/mosslantern-decoder"_L1;
    const QString installed = folder + "/../libexec/mosslantern/mosslantern-decoder"_L1;
    return QFile::exists(built) ? built : installed;
}

Result<MemoryFile::Mapping> runDecoder(const QString &program, const DecoderTask &task, QIODevice &device)
{
    auto output = MemoryFile::create("decoded picture");
    if (!output)
        return notStarted(program, qt_error_string(errno));
    const auto *const file = qobject_cast<QFile *>(&device);
    std::optional<MemoryFile> copy = file ? std::nullopt : MemoryFile::create("picture");
    if (!file && !copy)
        return notStarted(program, qt_error_string(errno));
    if (copy && !copy->write(device.peek(device.size())))
        return fail(pictureNeedsTooMuchMemory());
    const int input = file ? file->handle() : copy->descriptor();
    // Reading ahead has moved it.
    ::lseek(input, 0, SEEK_SET);
    pid_t process = 0;
    if (const int error =
            start(QFile::encodeName(program), argumentsOf(task), input, output->descriptor(), process))
        return notStarted(program, qt_error_string(error));
    const int status = waitFor(process);
    if (isDecodingStopped())
        return fail(stoppedDecoding());
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
