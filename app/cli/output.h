#pragma once

#include "app/cli/exit_status.h"
#include "model/error.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QStringList>

namespace mosslantern {

/// Makes sure that files opened later never get the numbers of standard input, output and error, and that
/// writing to a pipe whose reader is gone, or beyond the size a file may have, is an error and not the end of
/// the program. Call it first. False, with a report, when so few files may be open that Qt cannot work.
bool prepareStandardStreams();

/// Writes to standard output. Failures show in finishOutput().
void writeOut(QByteArrayView bytes);

/// Writes one line of fields to standard output, separated by tabs, each as printable() gives it.
void writeRow(const QStringList &fields);

/// `text` on one line, safe for a terminal: line breaks and tabs as spaces, other control characters and
/// halves of surrogate pairs as U+FFFD.
QString printable(QStringView text);

/// Writes "mosslantern-cli: " and one line to standard error.
void report(QStringView message);

/// Reports an error and gives the exit status for it.
int failedWith(const Error &error);
int wrongUsage(QStringView problem);

/// Delivers what is still buffered. Gives `status`, or another one when standard output could not take all:
/// silently 141, as SIGPIPE would, when its reader is gone, else 1 with a report.
int finishOutput(int status);

} // namespace mosslantern
