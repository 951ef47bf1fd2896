#include "app/cli/qt_messages.h"

#include "app/cli/output.h"

#include <QtCore/QLoggingCategory>

#include <array>
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
}

} // namespace

void quietQt()
{
    qInstallMessageHandler(pass);
}

} // namespace mosslantern
