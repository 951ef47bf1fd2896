#include "app/gui/window_memory.h"

#include <QtCore/QSettings>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto geometryKey = "windowGeometry"_L1;
constexpr auto maximizedKey = "windowIsMaximized"_L1;

} // namespace

void restoreWindow(QWindow &window, const QString &stateFile)
{
    const QSettings state(stateFile, QSettings::IniFormat);
    const QRect geometry = state.value(geometryKey).toRect();
    if (geometry.isValid()) {
        window.resize(geometry.size().expandedTo(window.minimumSize()));
        for (const QScreen *screen : window.screen()->virtualSiblings()) {
            if (screen->availableGeometry().contains(geometry.center()))
                window.setPosition(geometry.topLeft());
        }
    }
    if (state.value(maximizedKey).toBool())
        window.setWindowStates(Qt::WindowMaximized);
}

void rememberWindow(const QWindow &window, int missingWidth, const QString &stateFile)
{
    if (window.windowStates().testFlag(Qt::WindowFullScreen))
        return;
    QSettings state(stateFile, QSettings::IniFormat);
    const bool isMaximized = window.windowStates().testFlag(Qt::WindowMaximized);
    state.setValue(maximizedKey, isMaximized);
    if (window.windowStates() == Qt::WindowNoState)
        state.setValue(geometryKey, window.geometry().adjusted(0, 0, missingWidth, 0));
}

} // namespace mosslantern
