#pragma once

#include <QtCore/QString>

#include <cstdio>

namespace mosslantern {

/// Prints one line, as UTF-8, to the console stream: the application's reports of failed operations.
void printLine(const QString &line);

/// Sends later lines of printLine() to `stream` (standard output until then).
void setConsoleStream(std::FILE *stream);

} // namespace mosslantern
