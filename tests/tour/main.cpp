// Opens the application on a prepared library, goes through its screens and states, and writes a picture of
// each into a folder: tour FOLDER.

#include "app/gui/mosslantern_app.h"
#include "model/collection.h"
#include "model/content_template.h"
#include "model/image_files.h"
#include "tests/content/test_server.h"
#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

class Tour
{
public:
    explicit Tour(const QString &folder)
        : m_folder(folder)
    {
        m_folder.mkpath(u"."_s);
    }

    void run();

private:
    void importPictures();
    void assets();
    void collections();
    void contentLibrary();
    void menus();
    void filePanel();
    void controls();
    void updates();
    void fullDisk();
    void failure();
    void click(const QString &objectName, int nth = 0, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {});
    void require(const QString &objectName);
    void save(QQuickWindow *window, const QString &name);
    void waitForThumbnails();
    void waitForPopup();
    void picture(const QString &name);

    UiSession m_session;
    QDir m_folder;
};

void Tour::importPictures()
{
    const QDir nature(u"/usr/share/backgrounds/mate/nature"_s);
    for (const QFileInfo &file : nature.entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name))
        static_cast<void>(importAsset(QUrl::fromLocalFile(file.filePath()), m_session.store()));
    m_session.library().addAsset(u"A photograph whose file has gone missing.jpg"_s);
}

void Tour::waitForThumbnails()
{
    QTest::qWait(1500);
}

void Tour::waitForPopup()
{
    QTest::qWait(300);
}

void Tour::picture(const QString &name)
{
    m_session.settle();
    save(m_session.window(), name);
}

void Tour::click(const QString &objectName, int nth, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (!m_session.click(objectName, nth, button, modifiers))
        qFatal("%s cannot be clicked", qPrintable(objectName));
}

/// What a picture is about must be in it.
void Tour::require(const QString &objectName)
{
    if (!m_session.find(objectName))
        qFatal("%s does not show", qPrintable(objectName));
}

void Tour::assets()
{
    picture(u"assets-empty"_s);
    importPictures();
    m_session.settle();
    picture(u"assets-loading"_s);
    waitForThumbnails();
    picture(u"assets"_s);
    m_session.key(Qt::Key_Tab);
    m_session.key(Qt::Key_Right);
    picture(u"assets-keyboard"_s);
    click(u"assetCell"_s, 2, Qt::RightButton);
    waitForPopup();
    require(u"deleteAsset"_s);
    picture(u"assets-menu"_s);
    m_session.key(Qt::Key_Escape);
}

void Tour::collections()
{
    click(u"sidebarRow1"_s);
    picture(u"collections-empty"_s);
    click(u"newCollection"_s);
    waitForPopup();
    require(u"createCollection"_s);
    picture(u"collections-new"_s);
    m_session.type(u"Flowers 🌼"_s);
    picture(u"collections-new-named"_s);
    click(u"createCollection"_s);
    for (const QString &name :
         {u"Weather"_s, u"A collection with a name that goes on and on, much further than anyone would "
                        "type it in a list of collections, and then some more of it"_s})
        m_session.store().insert(std::make_unique<Collection>(name));
    waitForPopup();
    click(u"collectionRow"_s, 2);
    picture(u"collections-selected-empty"_s);
    click(u"addAssets"_s);
    waitForThumbnails();
    for (const int cell : {0, 3, 4})
        click(u"pickCell"_s, cell);
    require(u"confirmAddAssets"_s);
    picture(u"collections-add"_s);
    m_session.key(Qt::Key_Right);
    picture(u"collections-add-keyboard"_s);
    click(u"confirmAddAssets"_s);
    waitForThumbnails();
    picture(u"collections-members"_s);
    click(u"memberCell"_s, 1, Qt::RightButton);
    waitForPopup();
    require(u"removeFromCollection"_s);
    picture(u"collections-member-menu"_s);
    m_session.key(Qt::Key_Escape);
    waitForPopup();
    click(u"collectionRow"_s, 1, Qt::RightButton);
    waitForPopup();
    require(u"deleteCollection"_s);
    picture(u"collections-menu"_s);
    m_session.key(Qt::Key_Escape);
    waitForPopup();
}

void Tour::contentLibrary()
{
    QMetaObject::invokeMethod(m_session.view(), "showContentLibrary");
    waitForPopup();
    picture(u"templates-empty"_s);
    click(u"saveCurrentTemplate"_s);
    waitForPopup();
    picture(u"templates-save-current"_s);
    m_session.key(Qt::Key_Escape);
    waitForPopup();
    click(u"createNewTemplate"_s);
    waitForPopup();
    picture(u"templates-create"_s);
    m_session.type(u"Morning walk"_s);
    m_session.key(Qt::Key_Tab);
    m_session.type(u"{\n  \"slides\": [\n    {\n      \"main\": \"Five reasons to get up early ☀️\",\n"
                   "      \"subtitle\": \"The second one surprised me\"\n    }\n  ]\n}"_s);
    picture(u"templates-create-filled"_s);
    click(u"saveTemplate"_s);
    waitForPopup();
    QStringList lines;
    for (int i = 1; i <= 60; ++i)
        lines.append(u"Slide %1 of a very long text"_s.arg(i));
    for (const QString &name :
         {u"A plain text of many lines"_s, u"A template whose name is longer than its row"_s})
        m_session.store().insert(std::make_unique<ContentTemplate>(name, lines.join(u'\n')));
    m_session.settle();
    picture(u"templates"_s);
    click(u"templateRow"_s, 1);
    picture(u"templates-long"_s);
    click(u"deleteTemplate"_s);
    waitForPopup();
    require(u"cancelDeleteTemplate"_s);
    picture(u"templates-delete"_s);
    click(u"cancelDeleteTemplate"_s);
    waitForPopup();
    click(u"contentLibraryDone"_s);
    waitForPopup();
}

void Tour::menus()
{
    for (const QString &menu : {u"&Mosslantern"_s, u"&Edit"_s, u"&View"_s, u"&Window"_s, u"&Help"_s}) {
        QQuickItem *const item = m_session.findText(menu);
        QTest::mouseClick(m_session.window(), Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
        waitForPopup();
        const auto *const opened = item->property("menu").value<QObject *>();
        if (!opened || !opened->property("opened").toBool())
            qFatal("the menu %s is not open", qPrintable(menu));
        picture(u"menu-"_s + menu.sliced(1).toLower());
        m_session.key(Qt::Key_Escape);
        waitForPopup();
    }
    m_session.key(Qt::Key_F1);
    waitForPopup();
    require(u"closeShortcuts"_s);
    picture(u"shortcuts"_s);
    m_session.key(Qt::Key_Escape);
    waitForPopup();
    m_session.key(Qt::Key_M, Qt::AltModifier);
    click(u"about"_s);
    waitForPopup();
    require(u"closeAbout"_s);
    picture(u"about"_s);
    m_session.key(Qt::Key_Escape);
    waitForPopup();
}

void Tour::save(QQuickWindow *window, const QString &name)
{
    const QString file = m_folder.filePath(name + u".png"_s);
    if (!window->grabWindow().save(file))
        qFatal("%s cannot be written", qPrintable(file));
}

/// Every shared control that no screen shows yet, in its states.
void Tour::controls()
{
    QQmlEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    QQmlComponent component(&engine);
    component.setData(R"(
        import QtQuick
        import Mosslantern.Common
        Window {
            width: 420; height: 330; visible: true; color: Theme.windowBackground
            InspectorCard {
                x: 20; y: 20; width: 380; title: "Style"
                Column {
                    width: parent.width; spacing: 14
                    SegmentedPicker { objectName: "segments"; label: "Shape"; width: parent.width; options: ["9:16", "4:5", "1:1"]; onPicked: (index) => currentIndex = index }
                    SegmentedPicker { label: "Disabled"; width: parent.width; enabled: false; options: ["One", "A text that is too long for it"] }
                    MenuPicker { objectName: "menu"; label: "Images"; width: parent.width; model: ["All Assets", "Flowers", "A collection whose name is far too long for a menu of this width"] }
                    Row { spacing: 8
                        PushButton { text: "Plain" } PushButton { text: "Prominent"; isProminent: true; symbol: "sparkles" }
                        PushButton { text: "Delete"; isDestructive: true; symbol: "trash" } PushButton { text: "Off"; enabled: false }
                    }
                }
            }
        }
    )",
                      {});
    const std::unique_ptr<QObject> object(component.create());
    auto *const window = qobject_cast<QQuickWindow *>(object.get());
    if (!window || !QTest::qWaitForWindowExposed(window))
        qFatal("%s", qPrintable(component.errorString()));
    window->requestActivate();
    QTest::mouseClick(window, Qt::LeftButton, {}, {210, 80});
    QTest::mouseClick(window, Qt::LeftButton, {}, {210, 165});
    waitForPopup();
    save(window, u"controls"_s);
}

void Tour::filePanel()
{
    QtFilePanels panels;
    panels.setWindow(m_session.window());
    panels.openImages([](const Result<QList<QUrl>> &) {});
    auto *const panel = QApplication::activeModalWidget();
    QTest::qWait(500);
    if (!panel || !panel->grab().save(m_folder.filePath(u"file-panel.png"_s)))
        qFatal("the file panel does not show");
    panel->close();
}

void Tour::updates()
{
    const QByteArray feed =
        "<rss version='2.0' "
        "xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
        "<sparkle:version>%1</sparkle:version><link>https://example.org/</link><description>&lt;ul&gt;"
        "&lt;li&gt;Texts can be turned.&lt;/li&gt;&lt;li&gt;Exports are twice as fast.&lt;/li&gt;&lt;/ul&gt;"
        "</description></item></channel></rss>";
    for (const auto &[version, name] : {std::pair("9", u"update-found"_s), std::pair("1", u"update-none"_s),
                                        std::pair("", u"update-failed"_s)}) {
        const QByteArray body = *version ? QByteArray(feed).replace("%1", version) : QByteArray("?");
        const TestServer server(TestServer::always(
            "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body));
        UiSession session;
        session.setFeed(QUrl(u"http://127.0.0.1:%1/"_s.arg(server.port())));
        session.open();
        session.updater().checkForUpdates();
        QTest::qWait(500);
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->isVisible() && window->title() == "Software Update"_L1)
                save(qobject_cast<QQuickWindow *>(window), name);
        }
    }
}

void Tour::fullDisk()
{
    {
        const FullDisk full(1);
        m_session.store().insert(std::make_unique<Collection>(u"Not saved"_s));
        m_session.settle();
        m_session.window()->close();
        waitForPopup();
    }
    picture(u"quit-unsaved"_s);
    click(u"cancelQuit"_s);
    waitForPopup();
    picture(u"save-error"_s);
}

void Tour::failure()
{
    TestLibrary library;
    QDir().mkpath(QFileInfo(library.storeFile()).path());
    QFile file(library.storeFile());
    if (!file.open(QIODevice::WriteOnly) || file.write("not a library") < 0)
        qFatal("cannot write");
    file.close();
    MosslanternApp app({.location = library.location(),
                        .stateFile = library.path(u"state.ini"_s),
                        .updateFeed = QUrl(QString(), QUrl::StrictMode)});
    if (app.start() != StartOutcome::shown)
        qFatal("the failure does not show");
    QTest::qWait(300);
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->findChild<QObject *>(u"failureHeading"_s)) {
            window->requestActivate();
            QTest::qWait(200);
            save(qobject_cast<QQuickWindow *>(window), u"failure"_s);
        }
    }
}

void Tour::run()
{
    m_session.open();
    assets();
    collections();
    contentLibrary();
    menus();
    click(u"sidebarRow2"_s);
    waitForThumbnails();
    picture(u"slideshows"_s);
    click(u"sidebarRow2"_s, 0, Qt::LeftButton, Qt::ControlModifier);
    picture(u"nothing-selected"_s);
    click(u"sidebarRow0"_s);
    m_session.window()->resize(1200, 730);
    waitForThumbnails();
    picture(u"assets-smallest"_s);
    filePanel();
    controls();
    updates();
    fullDisk();
    failure();
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(u"1.2"_s);
    if (argc != 2)
        qFatal("usage: tour FOLDER");
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    Tour(QString::fromLocal8Bit(argv[1])).run();
}
