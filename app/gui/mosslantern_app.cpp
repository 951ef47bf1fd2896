#include "app/gui/mosslantern_app.h"

#include "app/gui/library_recovery_view.h"
#include "app/gui/main_window.h"
#include "app/gui/window_memory.h"
#include "model/slideshow.h"
#include "ui/common/interface_fonts.h"
#include "ui/library/picture_intake.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtGui/QOpenGLContext>
#include <QtQuick/QQuickItem>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The driver is loaded when Qt is asked what it can do. Nothing of a start takes longer, and until it is
/// done no window may be made. Whether there is a driver.
std::future<bool> loadGraphicsDriver()
{
    return std::async(std::launch::async,
                      [] { return QOpenGLContext::supportsThreadedOpenGL() || QOpenGLContext().create(); });
}

/// So that looking after the library's file takes nothing from the first look at it.
constexpr auto upkeepDelay = 1s;
constexpr auto upkeepInterval = 1h;

/// Where to look for a file that may be missing, with its folder: the nearest folder that is there.
QUrl nearestFolder(const QString &file)
{
    if (file.isEmpty())
        return {};
    QFileInfo folder(QFileInfo(file).path());
    while (!folder.isDir() && !folder.isRoot())
        folder.setFile(folder.path());
    return QUrl::fromLocalFile(folder.filePath());
}

} // namespace

MosslanternApp::MosslanternApp(const StartOptions &options)
    : m_options(options)
    , m_updaterController(StartingUpdater::yes, {.feed = options.updateFeed,
                                                 .version = QCoreApplication::applicationVersion(),
                                                 .stateFile = options.stateFile})
    , m_singleInstance(options.location)
    , m_service(OpenAIService::baseUrlFrom(QProcessEnvironment::systemEnvironment()))
{
    QObject::connect(&m_singleInstance, &SingleInstance::raiseRequested, &m_singleInstance,
                     [this](const WindowRequest &request) { raiseWindow(request); });
}

MosslanternApp::~MosslanternApp()
{
    // The screens go before what they show.
    m_engine.reset();
}

StartOutcome MosslanternApp::start()
{
    if (m_singleInstance.raiseOther(m_options.request))
        return StartOutcome::raisedOther;
    m_engine.emplace();
    m_engine->addImportPath(u"qrc:/qt/qml"_s);
    prepareMainWindow(*m_engine);
    m_graphicsDriver = loadGraphicsDriver();
    return openLibrary();
}

StartOutcome MosslanternApp::openLibrary()
{
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        return showFailure(u"Mosslantern is not installed completely"_s, fonts.error().message, {});
    if (m_options.location.assetFolder().isEmpty())
        return showFailure(
            u"There is no documents folder"_s,
            u"Mosslantern keeps its pictures in your documents folder, but this system names none. "
            "Set XDG_DOCUMENTS_DIR in ~/.config/user-dirs.dirs."_s,
            {});
    return openStore();
}

StartOutcome MosslanternApp::openStore()
{
    Result<std::unique_ptr<Store>> store = Store::open(m_options.location);
    if (!store && store.error().kind == ErrorKind::damagedLibrary)
        return showDamage(store.error().message);
    if (!store)
        return raisesOther() ? StartOutcome::raisedOther
                             : showFailure(u"The library cannot be opened"_s, store.error().message,
                                           m_options.location.storeFile());
    m_store = std::move(*store);
    if (!m_singleInstance.listen())
        qWarning("A second start will not find this window.");
    return openMainWindow();
}

bool MosslanternApp::raisesOther() const
{
    // Another process that opened the library a moment ago does not listen yet; one that hangs never answers.
    for (const QDeadlineTimer deadline(1s); !deadline.hasExpired(); QThread::msleep(100ms / 1ms)) {
        if (m_singleInstance.raiseOther(m_options.request))
            return true;
    }
    return false;
}

StartOutcome MosslanternApp::openMainWindow()
{
    m_context.emplace(*m_store, m_filePanels, m_service, Preferences());
    QObject::connect(&m_context->work(), &RunningWork::changed, &m_singleInstance,
                     [this] { m_singleInstance.setIsAtWork(m_context->work().isExporting()); });
    std::unique_ptr<QQuickItem> view = makeMainView(*m_engine, *m_context, updater());
    if (!view)
        return StartOutcome::failed;
    prepareGraphics();
    m_window = makeMainWindow(*m_engine, std::move(view));
    if (!m_window)
        return StartOutcome::failed;
    m_filePanels.setWindow(m_window);
    restoreWindow(*m_window, m_options.stateFile);
    QObject::connect(m_window, &QWindow::visibleChanged, m_window, [this](bool isVisible) {
        if (!isVisible && m_window)
            rememberWindow(*m_window, m_window->property("missingWidth").toInt(), m_options.stateFile);
    });
    m_window->setVisible(true);
    QTimer::singleShot(0, m_window, [this] { fulfil(std::exchange(m_options.request, {})); });
    QTimer::singleShot(upkeepDelay, m_store.get(), &Store::beginUpkeep);
    auto *const upkeep = new QTimer(m_store.get());
    QObject::connect(upkeep, &QTimer::timeout, m_store.get(), &Store::beginUpkeep);
    upkeep->start(upkeepInterval);
    QObject::connect(
        m_store.get(), &Store::damageFound, m_window,
        [this](const QString &message) { leaveMainWindow(message); }, Qt::QueuedConnection);
    return StartOutcome::shown;
}

void MosslanternApp::prepareGraphics()
{
    if (m_graphicsDriver.valid() && !m_graphicsDriver.get())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

StartOutcome MosslanternApp::showFailure(const QString &heading, const QString &message, const QString &file,
                                         LibraryRecoveryView *recovery)
{
    prepareGraphics();
    const qsizetype before = m_engine->rootObjects().size();
    m_engine->setInitialProperties({{u"heading"_s, heading},
                                    {u"message"_s, message},
                                    {u"file"_s, file},
                                    {u"folder"_s, nearestFolder(file)},
                                    {u"recovery"_s, QVariant::fromValue(recovery)}});
    m_engine->load(QUrl(u"qrc:/qt/qml/Mosslantern/App/FailureWindow.qml"_s));
    return m_engine->rootObjects().size() == before ? StartOutcome::failed : StartOutcome::shown;
}

StartOutcome MosslanternApp::showDamage(const QString &message)
{
    auto *const recovery = new LibraryRecoveryView(m_options.location, &*m_engine);
    QObject::connect(
        recovery, &LibraryRecoveryView::openRequested, recovery, [this] { openRecovered(); },
        Qt::QueuedConnection);
    return showFailure(u"The library is damaged"_s, message, m_options.location.storeFile(), recovery);
}

void MosslanternApp::leaveMainWindow(const QString &damage)
{
    // There must be a window at every moment, or the application ends.
    showDamage(damage);
    m_window->hide();
    m_filePanels.setWindow(nullptr);
    delete std::exchange(m_window, nullptr);
    m_context.reset();
    m_store.reset();
}

void MosslanternApp::openRecovered()
{
    QObject *const failureWindow = m_engine->rootObjects().constLast();
    openStore();
    delete failureWindow;
}

void MosslanternApp::raiseWindow(const WindowRequest &request)
{
    if (!m_window) {
        // The library may yet be opened.
        m_options.request.pictures += request.pictures;
        m_options.request.destination = request.destination;
        return;
    }
    if (!request.activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", request.activationToken);
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->raise();
    m_window->requestActivate();
    fulfil(request);
}

void MosslanternApp::fulfil(const WindowRequest &request)
{
    if (!request.pictures.isEmpty())
        PictureIntake::of(*m_context).takeNamed(request.pictures);
    const auto *const place = std::ranges::find(destinations, request.destination,
                                                [](const Destination &it) { return QString(it.name); });
    if (place != destinations.end())
        QMetaObject::invokeMethod(m_window->property("view").value<QObject *>(), "showScreen",
                                  Q_ARG(int, static_cast<int>(place->screen)), Q_ARG(int, place->tab));
}

} // namespace mosslantern
