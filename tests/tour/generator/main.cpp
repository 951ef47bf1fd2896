// Opens the screen that makes slideshows in each of its states and writes a picture of each into a folder:
// generator_tour FOLDER.

#include "model/collection.h"
#include "model/content_template.h"
#include "model/image_files.h"
#include "tests/content/test_server.h"
#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"
#include "ui/generator/slideshows_view.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

const QString eightEntries = u"{\"slides\": ["
                             "{\"main\": \"8 habits that\\nchanged my mornings ☀️\"},"
                             "{\"main\": \"Drink water first\", \"subtitle\": \"before coffee\"},"
                             "{\"main\": \"No phone\\nuntil breakfast\", \"subtitle\": \"really\"},"
                             "{\"main\": \"Write three lines\"},"
                             "{\"main\": \"Walk\", \"subtitle\": \"even in the rain 🌧\"},"
                             "{\"main\": \"Cook one thing\"},"
                             "{\"main\": \"Plan the evening\"},"
                             "{\"main\": \"Go to bed earlier\", \"subtitle\": \"try it\"}]}"_s;

class GeneratorTour
{
public:
    explicit GeneratorTour(const QString &folder)
        : m_folder(folder)
    {
        m_folder.mkpath(u"."_s);
    }

    void run();

private:
    void open(const QSize &size = {1280, 830});
    void importPictures();
    void picture(const QString &name, int wait = 400);
    void scroll(double share);
    SlideshowsView &view() const { return *m_session->window()->findChild<SlideshowsView *>(); }
    SlideshowGenerator &generator() const { return *view().generator(); }

    void withoutAssets();
    void panel();
    void styles();
    void texts();
    void entries();
    void ai();
    void sizes();

    QDir m_folder;
    std::unique_ptr<UiSession> m_session;
};

void GeneratorTour::open(const QSize &size)
{
    m_session->open();
    m_session->window()->resize(size);
    m_session->click(u"sidebarRow2"_s);
}

void GeneratorTour::importPictures()
{
    const QDir nature(u"/usr/share/backgrounds/mate/nature"_s);
    for (const QFileInfo &file : nature.entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name))
        static_cast<void>(importAsset(QUrl::fromLocalFile(file.filePath()), m_session->store()));
}

void GeneratorTour::picture(const QString &name, int wait)
{
    QTest::qWait(wait);
    const QString file = m_folder.filePath(name + u".png"_s);
    if (!m_session->grab().save(file))
        qFatal("%s cannot be written", qPrintable(file));
}

void GeneratorTour::scroll(double share)
{
    QQuickItem *const panel = m_session->find(u"generatorPanel"_s);
    panel->setProperty("contentY", share * (panel->property("contentHeight").toDouble() - panel->height()));
}

void GeneratorTour::withoutAssets()
{
    m_session = std::make_unique<UiSession>();
    open();
    picture(u"no-assets"_s);
    scroll(1);
    picture(u"no-assets-button"_s);
}

void GeneratorTour::panel()
{
    for (const QString &name : {u"Flowers"_s, u"A collection with a name that is much too long for a menu"_s})
        m_session->store().insert(std::make_unique<Collection>(name));
    picture(u"default"_s, 1500);
    m_session->click(u"sourcePicker"_s);
    picture(u"source-menu"_s);
    m_session->key(Qt::Key_Escape);
    view().panel()->chooseCollection(2);
    picture(u"long-empty-collection"_s);
    view().panel()->chooseCollection(0);
    scroll(1);
    picture(u"default-scrolled"_s);
    generator().setTextInput({});
    picture(u"empty-text"_s);
    generator().setTextInput(u"{\"slides\": [{\"main\": \"half"_s);
    picture(u"invalid"_s);
    m_session->click(u"openLibrary"_s);
    m_session->store().insert(std::make_unique<ContentTemplate>(u"Mornings"_s, eightEntries));
    picture(u"library"_s);
    m_session->key(Qt::Key_Escape);
    view().panel()->insertExample();
    generator().setBulkCount(23);
    generator().setTemplateTextScale(1.37);
    picture(u"example"_s);
    m_session->find(u"mainTextSizeSlider"_s)->forceActiveFocus(Qt::TabFocusReason);
    picture(u"keyboard-focus"_s);
}

void GeneratorTour::styles()
{
    scroll(0.45);
    for (const TextStyle style : allTextStyles) {
        generator().setSelectedStyle(style);
        picture(u"style-"_s + rawText(style));
    }
    generator().setSelectedStyle(TextStyle::classic);
    for (const AspectRatio shape : allAspectRatios) {
        generator().setSelectedAspectRatio(shape);
        picture(u"shape-%1"_s.arg(static_cast<int>(shape)), 800);
    }
    generator().setSelectedAspectRatio(AspectRatio::tiktok);
}

void GeneratorTour::texts()
{
    view().preview()->mainBlock()->startEditing();
    picture(u"editing"_s);
    m_session->type(u" typed"_s);
    picture(u"editing-typed"_s);
    view().preview()->endEditing();
    view().preview()->subtitleBlock()->drag({60, -300});
    view().preview()->subtitleBlock()->endDrag();
    picture(u"dragged"_s);
}

void GeneratorTour::entries()
{
    generator().setTextInput(eightEntries);
    view().panel()->prettify();
    picture(u"eight-entries"_s, 1500);
    m_session->click(u"nextEntry"_s);
    m_session->click(u"stripEntry2"_s);
    picture(u"third-entry"_s, 800);
    m_session->click(u"screenTab1"_s);
    picture(u"history"_s, 1500);
    m_session->click(u"screenTab0"_s);
}

void GeneratorTour::ai()
{
    scroll(0);
    generator().setIsAiMode(true);
    picture(u"ai-without-key"_s);
    generator().setOpenAiApiKey(u"sk-0123456789abcdef"_s);
    generator().setBatchName(u"Mornings"_s);
    picture(u"ai"_s);
    m_session->click(u"apiKeyInfo"_s);
    picture(u"ai-popover"_s);
    m_session->key(Qt::Key_Escape);
    QTest::qWait(500);
    scroll(1);
    picture(u"ai-button"_s);
    m_session->click(u"generate"_s);
    picture(u"generating"_s);
}

void GeneratorTour::sizes()
{
    for (const QSize size : {QSize(1200, 730), QSize(1920, 1200)}) {
        m_session->window()->resize(size);
        picture(u"window-%1"_s.arg(size.width()), 1500);
    }
}

void GeneratorTour::run()
{
    withoutAssets();
    const TestServer silent([](QTcpSocket *) {});
    m_session = std::make_unique<UiSession>();
    m_session->setServiceUrl(u"http://127.0.0.1:%1"_s.arg(silent.port()));
    importPictures();
    open();
    panel();
    styles();
    texts();
    entries();
    ai();
    m_session->click(u"sidebarRow0"_s);
    m_session->click(u"sidebarRow2"_s);
    generator().setTextInput(eightEntries);
    sizes();
    m_session.reset();
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: generator_tour FOLDER");
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    GeneratorTour(QString::fromLocal8Bit(argv[1])).run();
}
