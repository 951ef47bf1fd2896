#pragma once

#include <QtCore/QString>

class QWindow;

namespace mosslantern {

/// Gives a window the size and place that it had when rememberWindow() was called last, as far as it still
/// lies on a screen.
void restoreWindow(QWindow &window, const QString &stateFile);

/// Writes down size and place of a window, or that it is maximized.
void rememberWindow(const QWindow &window, const QString &stateFile);

} // namespace mosslantern
