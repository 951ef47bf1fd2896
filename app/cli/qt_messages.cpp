#include "app/cli/qt_messages.h"

#include "app/cli/exit_status.h"
#include "app/cli/output.h"

#include <QtCore/QLoggingCategory>

#include <array>
#include <cstdlib>
#include <cstring>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isNoise(QtMsgType type, const char *category, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return true;
    if (type != QtWarningMsg)
        return false;
    constexpr std::array noisy{"qt.gui.icc", "qt.gui.imageio"};
    for (const char *prefix : noisy) {
        if (category && std::strncmp(category, prefix, std::strlen(prefix)) == 0)
            return true;
    }
    // About XDG_RUNTIME_DIR, which the tool makes no use of, and about each font that the text engine passes
    // over on its way to one for the script; both come without a category.
    return message.startsWith("QStandardPaths: "_L1) || message.contains("OpenType support missing for "_L1);
}

void pass(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!isNoise(type, context.category, message))
        report(message);
    // Qt's painter hands large areas to threads of its own and waits for them for ever where they cannot be
    // started; and a fatal message would end in an abort.
    if (type == QtFatalMsg || message.startsWith("QThread::start: "_L1))
        std::_Exit(finishOutput(failed));
}

} // namespace

void quietQt()
{
    qInstallMessageHandler(pass);
}

} // namespace mosslantern
