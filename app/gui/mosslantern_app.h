#pragma once

#include "app/gui/qt_file_panels.h"
#include "app/gui/single_instance.h"
#include "app/update/spu_standard_updater_controller.h"
#include "content/openai_service.h"
#include "model/store.h"
#include "ui/common/screen_context.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

#include <future>
#include <optional>

namespace mosslantern {

class LibraryRecoveryView;

/// What the command line asks of the application.
struct StartOptions
{
    LibraryLocation location;   // of the records and pictures
    QString stateFile;          // an INI file for the window's place and the like
    QUrl updateFeed;            // invalid for none
    WindowRequest request = {}; // done once the window shows
};

/// How a start ended.
enum class StartOutcome {
    shown,       // a window is open, if only one that says what is wrong
    raisedOther, // the window of the process that has the library open has come to the front
    failed,      // there is no window
};

/// The application: its updater, its store and its window.
class MosslanternApp
{
public:
    /// Begins the checks for updates; opens nothing yet.
    explicit MosslanternApp(const StartOptions &options);
    ~MosslanternApp();

    /// Opens the window, or one that says why there is none; or, when the library is open in another process,
    /// raises that one's window and opens none.
    StartOutcome start();

    /// The main window; null when it is not open.
    QQuickWindow *window() const { return m_window; }
    SPUUpdater &updater() { return m_updaterController.updater(); }

private:
    StartOutcome openLibrary();
    StartOutcome openStore();
    bool raisesOther() const;
    StartOutcome openMainWindow();
    void prepareGraphics();
    StartOutcome showFailure(const QString &heading, const QString &message, const QString &file,
                             LibraryRecoveryView *recovery = nullptr);
    StartOutcome showDamage(const QString &message);
    void leaveMainWindow(const QString &damage);
    void openRecovered();
    void raiseWindow(const WindowRequest &request);
    void fulfil(const WindowRequest &request);

    std::future<bool> m_graphicsDriver; // whether there is one; ready when it is loaded
    StartOptions m_options;
    SPUStandardUpdaterController m_updaterController;
    SingleInstance m_singleInstance;
    std::unique_ptr<Store> m_store;
    QtFilePanels m_filePanels;
    OpenAIService m_service;
    std::optional<ScreenContext> m_context;
    std::optional<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

} // namespace mosslantern
