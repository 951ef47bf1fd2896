#include "model/console.h"

namespace mosslantern {

namespace {
std::FILE *consoleStream = stdout;
}

void printLine(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), consoleStream);
    std::fflush(consoleStream);
}

void setConsoleStream(std::FILE *stream)
{
    consoleStream = stream;
}

} // namespace mosslantern
