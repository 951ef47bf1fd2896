#include "app/cli/output.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int brokenPipeStatus = 128 + SIGPIPE;

/// Why standard output has not taken something; 0 as long as it has.
int outputError = 0;

bool readerIsGone()
{
    pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
    return ::poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

} // namespace

bool prepareStandardStreams()
{
    // Opened the wrong way round, so that using a stream that the caller closed is still an error.
    for (const auto &[stream, mode] : {std::pair(STDIN_FILENO, O_WRONLY), std::pair(STDOUT_FILENO, O_RDONLY),
                                       std::pair(STDERR_FILENO, O_RDONLY)}) {
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", mode) != stream)
            ::_exit(failed);
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // Qt ends a program that cannot open what it needs.
    constexpr size_t needed = 12;
    std::array<int, needed> files{};
    std::ranges::generate(files, [] { return ::open("/dev/null", O_RDONLY | O_CLOEXEC); });
    const bool areEnough = std::ranges::none_of(files, [](int file) { return file < 0; });
    for (const int file : files)
        ::close(file);
    if (!areEnough)
        std::fputs("mosslantern-cli: too few files may be open at once; raise the limit (ulimit -n)\n",
                   stderr);
    return areEnough;
}

void writeOut(QByteArrayView bytes)
{
    const auto count = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.data(), 1, count, stdout) != count && outputError == 0)
        outputError = errno;
}

void writeRow(const QStringList &fields)
{
    QStringList columns;
    for (const QString &field : fields)
        columns.append(printable(field));
    writeOut(columns.join(u'\t').toUtf8() + '\n');
}

QString printable(QStringView text)
{
    QString line = text.toString();
    for (qsizetype i = 0; i < line.size(); ++i) {
        QChar &c = line[i];
        if (c.isHighSurrogate() && i + 1 < line.size() && line[i + 1].isLowSurrogate())
            ++i;
        else if (c.category() == QChar::Other_Control || c.isSurrogate())
            c = c.isSpace() ? QChar::Space : QChar::ReplacementCharacter;
    }
    return line;
}

void report(QStringView message)
{
    const QByteArray line = "mosslantern-cli: " + printable(message).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
}

int failedWith(const Error &error)
{
    report(error.message);
    return failed;
}

int wrongUsage(QStringView problem)
{
    report(problem);
    return badUsage;
}

int finishOutput(int status)
{
    if (std::fflush(stdout) != 0 && outputError == 0)
        outputError = errno;
    if (outputError == 0 && !std::ferror(stdout))
        return status;
    if (readerIsGone())
        return brokenPipeStatus;
    // What printLine() wrote leaves no reason behind.
    report(u"standard output could not be written"_s +
           (outputError ? u": "_s + qt_error_string(outputError) : QString()));
    return failed;
}

} // namespace mosslantern
