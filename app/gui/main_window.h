#pragma once

#include <memory>

class QQmlApplicationEngine;
class QQmlEngine;
class QQuickItem;
class QQuickWindow;

namespace mosslantern {

class SPUUpdater;
class ScreenContext;

/// Begins to compile, in the engine's own thread, what the two functions below make.
void prepareMainWindow(QQmlEngine &engine);

/// Makes all that the main window shows, with the first screen. Needs no window and no graphics driver.
/// Null, with a warning, when that fails.
std::unique_ptr<QQuickItem> makeMainView(QQmlEngine &engine, ScreenContext &context, SPUUpdater &updater);

/// Makes the main window, still hidden, which shows the view and owns it from then on; the engine owns the
/// window. Null, with a warning, when that fails.
QQuickWindow *makeMainWindow(QQmlApplicationEngine &engine, std::unique_ptr<QQuickItem> view);

} // namespace mosslantern
