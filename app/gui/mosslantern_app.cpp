#include "app/gui/mosslantern_app.h"

#include "app/gui/start_files.h"
#include "app/gui/window_memory.h"
#include "model/slideshow.h"
#include "ui/common/interface_fonts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QThread>
#include <QtQml/QQmlComponent>

namespace mosslantern {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The first window that is made loads it.
void loadGraphicsDriver()
{
    const QQuickWindow window;
}

QUrl qmlFile(QStringView name)
{
    return QUrl(u"qrc:/qt/qml/Mosslantern/%1.qml"_s.arg(name));
}

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
                     [this](const QByteArray &token) { raiseWindow(token); });
}

MosslanternApp::~MosslanternApp()
{
    // The screens go before what they show.
    m_engine.reset();
}

StartOutcome MosslanternApp::start()
{
    if (m_singleInstance.raiseOther())
        return StartOutcome::raisedOther;
    // Nothing takes longer than to load the graphics driver: the rest is read meanwhile, in other threads.
    std::future<StartFiles> files = readStartFiles(m_options.location);
    m_engine.emplace();
    m_engine->addImportPath(u"qrc:/qt/qml"_s);
    const QQmlComponent window(&*m_engine, qmlFile(u"App/MainWindow"), QQmlComponent::Asynchronous);
    const QQmlComponent screen(&*m_engine, qmlFile(u"Library/AssetLibraryScreen"),
                               QQmlComponent::Asynchronous);
    loadGraphicsDriver();
    return open(files.get());
}

StartOutcome MosslanternApp::open(StartFiles files)
{
    useInterfaceFont();
    if (!files.fonts)
        return showFailure(u"Mosslantern is not installed completely"_s, files.fonts.error(), {});
    if (m_options.location.assetFolder().isEmpty())
        return showFailure(u"There is no documents folder"_s, files.store.error(), {});
    if (!files.store)
        return raisesOther() ? StartOutcome::raisedOther
                             : showFailure(u"The library cannot be opened"_s, files.store.error(),
                                           m_options.location.storeFile());
    m_store = std::move(*files.store);
    if (!m_singleInstance.listen())
        qWarning("A second start will not find this window.");
    return openMainWindow();
}

bool MosslanternApp::raisesOther() const
{
    // Another process that opened the library a moment ago does not listen yet.
    constexpr int attempts = 10;
    for (int i = 0; i < attempts; ++i) {
        if (m_singleInstance.raiseOther())
            return true;
        QThread::msleep(100ms / 1ms);
    }
    return false;
}

StartOutcome MosslanternApp::openMainWindow()
{
    m_context.emplace(*m_store, m_filePanels, m_service, Preferences());
    m_window = load(u"MainWindow"_s, {{u"context"_s, QVariant::fromValue(&*m_context)},
                                      {u"updater"_s, QVariant::fromValue(&updater())}});
    if (!m_window)
        return StartOutcome::failed;
    m_filePanels.setWindow(m_window);
    restoreWindow(*m_window, m_options.stateFile);
    QObject::connect(m_window, &QWindow::visibleChanged, m_window, [this](bool isVisible) {
        if (!isVisible)
            rememberWindow(*m_window, m_options.stateFile);
    });
    m_window->setVisible(true);
    if (m_options.showsContentLibrary)
        QMetaObject::invokeMethod(m_window, "showContentLibrary");
    if (const auto slideshows = m_store->all<Slideshow>();
        m_options.showsSlideshowEditor && !slideshows.empty())
        QMetaObject::invokeMethod(m_window, "showSlideshowEditor",
                                  Q_ARG(mosslantern::Slideshow *, slideshows.front()));
    return StartOutcome::shown;
}

StartOutcome MosslanternApp::showFailure(const QString &heading, const Error &error, const QString &file)
{
    const QQuickWindow *const window = load(u"FailureWindow"_s, {{u"heading"_s, heading},
                                                                 {u"message"_s, error.message},
                                                                 {u"file"_s, file},
                                                                 {u"folder"_s, nearestFolder(file)}});
    return window ? StartOutcome::shown : StartOutcome::failed;
}

QQuickWindow *MosslanternApp::load(const QString &name, const QVariantMap &properties)
{
    m_engine->setInitialProperties(properties);
    m_engine->load(qmlFile(u"App/"_s + name));
    return m_engine->rootObjects().isEmpty()
               ? nullptr
               : qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
}

void MosslanternApp::raiseWindow(const QByteArray &token)
{
    if (!m_window)
        return;
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->raise();
    m_window->requestActivate();
}

} // namespace mosslantern
