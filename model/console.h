#pragma once

#include <QtCore/QString>

#include <cstdio>

namespace mosslantern {

/// `text` as a terminal may show it: without escape sequences, and of control characters only line feeds and
/// tabs.
QString terminalText(QStringView text);

/// Prints one line, as UTF-8 and as terminalText() gives it, to the console stream: the application's reports
/// of failed operations.
void printLine(const QString &line);

/// Sends later lines of printLine() to `stream` (standard output until then).
void setConsoleStream(std::FILE *stream);

} // namespace mosslantern
