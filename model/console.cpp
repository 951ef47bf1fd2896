#include "model/console.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace mosslantern {

namespace {
std::FILE *consoleStream = stdout;
}

QString terminalText(QStringView text)
{
    const auto isControl = [](QChar c) {
        return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t';
    };
    QString shown = text.toString();
    if (std::none_of(text.begin(), text.end(), isControl))
        return shown;
    // As in ECMA-48: a control sequence, a control string up to its end, or one character behind ESC.
    static const QRegularExpression sequence(QStringLiteral(
        R"((?:\x1b\[|\x{9b})[0-?]*[ -/]*[@-~]?)"
        R"(|(?:\x1b[PX^_\]]|[\x{90}\x{98}\x{9d}-\x{9f}])[^\x07\x1b\x{9c}]*(?:\x07|\x1b\\|\x{9c})?)"
        R"(|\x1b[ -/]*[0-~]?)"));
    shown.remove(sequence);
    shown.removeIf(isControl);
    return shown;
}

void printLine(const QString &line)
{
    const QByteArray bytes = terminalText(line).toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), consoleStream);
    std::fflush(consoleStream);
}

void setConsoleStream(std::FILE *stream)
{
    consoleStream = stream;
}

} // namespace mosslantern
