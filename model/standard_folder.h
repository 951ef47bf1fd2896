#pragma once

#include <QtCore/QStandardPaths>

namespace mosslantern {

/// Where the platform keeps a kind of the user's own files; empty when it says none. Where HOME is not an
/// absolute path, the home folder is that of the user database, for this process from then on; relative paths
/// in XDG_DATA_HOME and XDG_CONFIG_HOME are ignored, as the XDG Base Directory Specification demands.
QString standardFolder(QStandardPaths::StandardLocation kind);

} // namespace mosslantern
