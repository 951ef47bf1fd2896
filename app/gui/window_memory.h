#pragma once

#include <QtCore/QString>

class QWindow;

namespace mosslantern {

/// Gives a window the size and place that it had when rememberWindow() was called last, as far as it still
/// lies on a screen.
void restoreWindow(QWindow &window, const QString &stateFile);

/// Writes down size and place of a window, or that it is maximized; nothing while it fills the screen.
/// `missingWidth`: points that it lacks only as long as its sidebar is hidden.
void rememberWindow(const QWindow &window, int missingWidth, const QString &stateFile);

} // namespace mosslantern
