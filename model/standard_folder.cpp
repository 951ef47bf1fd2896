#include "model/standard_folder.h"

#include <pwd.h>
#include <unistd.h>

namespace mosslantern {

namespace {

bool isAbsolute(const QByteArray &path)
{
    return path.startsWith('/');
}

/// Whether HOME names a folder, if need be the one that the user database knows.
bool settleHome()
{
    if (isAbsolute(qgetenv("HOME")))
        return true;
    const passwd *const user = ::getpwuid(::getuid());
    return user && isAbsolute(user->pw_dir) && qputenv("HOME", user->pw_dir);
}

/// Whether the variable names a folder; it is gone when it names none.
bool settle(const char *variable)
{
    if (isAbsolute(qgetenv(variable)))
        return true;
    qunsetenv(variable);
    return false;
}

} // namespace

QString standardFolder(QStandardPaths::StandardLocation kind)
{
    const bool hasData = settle("XDG_DATA_HOME");
    const bool hasConfig = settle("XDG_CONFIG_HOME");
    const bool isKnown = settleHome() || (hasData && kind == QStandardPaths::AppDataLocation) ||
                         (hasConfig && kind == QStandardPaths::AppConfigLocation);
    return isKnown ? QStandardPaths::writableLocation(kind) : QString();
}

} // namespace mosslantern
