// Opens the slideshow editor in each of its states and writes a picture of each into a folder:
// editor_tour FOLDER.

#include "content/openai_service.h"
#include "model/image_files.h"
#include "tests/ui/slide/editor_session.h"
#include "tests/ui/test_file_panels.h"
#include "ui/editor/slideshow_detail_view.h"
#include "ui/slide/draggable_text_view.h"

#include <QtCore/QDir>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

class EditorTour
{
public:
    explicit EditorTour(const QString &folder)
        : m_folder(folder)
        , m_context(m_session.store(), m_panels, m_service, Preferences(QString()))
    {
        m_folder.mkpath(u"."_s);
    }

    void run();

private:
    Slideshow *addSlideshow(std::optional<AspectRatio> shape);
    void open(Slideshow *slideshow);
    void wait() { QTest::qWait(400); }
    void picture(const QString &name);
    void click(const QString &name);
    DraggableTextView *block(const QString &name) const;
    SlideInspectorView &inspector() const { return *m_detail->inspector(); }

    void styles();
    void shapes();
    void editing();
    void texts();
    void presets();
    void trouble();

    EditorSession m_session;
    QDir m_folder;
    TestFilePanels m_panels;
    OpenAIService m_service;
    ScreenContext m_context;
    SlideshowDetailView *m_detail = nullptr;
};

Slideshow *EditorTour::addSlideshow(std::optional<AspectRatio> shape)
{
    const QDir nature(u"/usr/share/backgrounds/mate/nature"_s);
    const QFileInfoList files = nature.entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name);
    const QStringList texts{u"5 habits that changed\nmy mornings ☀️"_s, u"Drink water first"_s,
                            u"No phone\nuntil breakfast"_s, u"Write three lines"_s, u"Go to bed earlier"_s};
    std::vector<std::unique_ptr<Slide>> slides;
    for (const QString &text : texts) {
        const auto asset = importAsset(
            QUrl::fromLocalFile(files[static_cast<qsizetype>(slides.size()) % files.size()].filePath()),
            m_session.store());
        slides.push_back(std::make_unique<Slide>(*asset, text, u"number %1"_s.arg(slides.size() + 1),
                                                 TextStyle::classic, slides.size()));
        slides.back()->setStyle(&SlideStyle::boxColorHex, u"000000"_s);
    }
    return m_session.store().insert(
        std::make_unique<Slideshow>(std::move(slides), shape, QUuid::createUuid(), u"Mornings"_s));
}

void EditorTour::open(Slideshow *slideshow)
{
    QQuickItem *const root = m_session.show(
        u"SlideshowDetailScreen"_s,
        {{u"context"_s, QVariant::fromValue(&m_context)}, {u"slideshow"_s, QVariant::fromValue(slideshow)}},
        {1200, 800});
    m_detail = root->findChild<SlideshowDetailView *>();
}

void EditorTour::picture(const QString &name)
{
    wait();
    const QString file = m_folder.filePath(name + u".png"_s);
    if (!m_session.grab().save(file))
        qFatal("%s cannot be written", qPrintable(file));
}

void EditorTour::click(const QString &name)
{
    const QQuickItem *const item = m_session.find(name);
    if (!item)
        qFatal("there is no %s", qPrintable(name));
    QTest::mouseClick(&m_session.window(), Qt::LeftButton, {},
                      item->mapToScene(item->boundingRect().center()).toPoint());
    m_session.settle();
}

DraggableTextView *EditorTour::block(const QString &name) const
{
    return m_session.find(u"canvasLoader"_s)->findChild<DraggableTextView *>(name);
}

void EditorTour::styles()
{
    open(addSlideshow(AspectRatio::tiktok));
    picture(u"loading-done-classic"_s);
    for (int style = 1; style < 4; ++style) {
        inspector().setTextStyle(style);
        if (style == 1)
            inspector().chooseColor(0);
        picture(u"style-"_s + rawText(allTextStyles[static_cast<size_t>(style)]));
    }
    inspector().setTextStyle(1);
    inspector().setBoxColor({0.8, 0.3, 0.1, 1});
    picture(u"colour-of-neither-choice"_s);
    inspector().applyToAllSlides();
    click(u"slideEntry2"_s);
    picture(u"third-slide-after-apply-to-all"_s);
}

void EditorTour::shapes()
{
    open(addSlideshow(AspectRatio::instagram));
    picture(u"shape-instagram"_s);
    open(addSlideshow(AspectRatio::square));
    picture(u"shape-square"_s);
    open(addSlideshow(std::nullopt));
    m_session.window().resize(1600, 1000);
    picture(u"shape-none-large-window"_s);
    open(m_session.store().insert(std::make_unique<Slideshow>(std::vector<std::unique_ptr<Slide>>(),
                                                              std::nullopt, QUuid(), std::nullopt)));
    picture(u"no-slides"_s);
}

void EditorTour::editing()
{
    open(addSlideshow(AspectRatio::tiktok));
    click(u"mainText"_s);
    picture(u"block-selected"_s);
    block(u"mainBlock"_s)->doubleClick({150, 15});
    picture(u"editing-caret"_s);
    QTest::keyClick(&m_session.window(), Qt::Key_A, Qt::ControlModifier);
    picture(u"editing-selection"_s);
    QTest::keyClick(&m_session.window(), Qt::Key_End);
    QTest::keyClick(&m_session.window(), Qt::Key_Return);
    m_session.type(u"and one more"_s);
    picture(u"editing-third-line"_s);
    block(u"mainBlock"_s)->setIsFocused(false);
    inspector().setTextStyle(3);
    block(u"mainBlock"_s)->setScale(1.5);
    block(u"mainBlock"_s)->startEditing();
    picture(u"editing-neon-scaled"_s);
    block(u"mainBlock"_s)->setIsFocused(false);
    block(u"mainBlock"_s)->drag({-90, 150});
    picture(u"dragging"_s);
    block(u"mainBlock"_s)->endDrag();
}

void EditorTour::texts()
{
    open(addSlideshow(AspectRatio::tiktok));
    inspector().setSubtitle({});
    picture(u"empty-subtitle"_s);
    inspector().setText(
        u"A very long line that reaches far beyond both edges of the canvas and is never wrapped"_s);
    inspector().setTextStyle(1);
    picture(u"very-long-line"_s);
    inspector().setText({});
    picture(u"empty-main-text"_s);
    inspector().setText(u"1\n2\n3\n4\n5\n6\n7"_s);
    inspector().setSubtitle(u"a\nb\nc\nd"_s);
    picture(u"fields-scroll"_s);
}

void EditorTour::presets()
{
    open(addSlideshow(AspectRatio::tiktok));
    m_session.window().resize(1200, 960);
    wait();
    click(u"savePreset"_s);
    picture(u"preset-dialog-empty"_s);
    m_session.type(u"My look"_s);
    picture(u"preset-dialog"_s);
    QTest::keyClick(&m_session.window(), Qt::Key_Return);
    picture(u"preset-saved"_s);
    inspector().setNewPresetName(u"A preset whose name is much too long for the menu of the inspector"_s);
    inspector().savePreset();
    click(u"presetPicker"_s);
    picture(u"preset-menu"_s);
}

void EditorTour::trouble()
{
    Slideshow *const slideshow = addSlideshow(AspectRatio::tiktok);
    for (const Slide *slide : slideshow->slides().first(3))
        QFile::remove(slide->imageURL().toLocalFile());
    open(slideshow);
    picture(u"missing-picture"_s);
    m_session.window().resize(1200, 500);
    wait();
    click(u"slideEntry0"_s);
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&m_session.window(), Qt::Key_Down);
    picture(u"list-scrolls"_s);
    m_detail->exportSlideshow();
    QObject::connect(m_detail->exportRun(), &ExportRun::progressed, m_detail, [this] {
        if (m_detail->exportRun()->written() == 2 && m_detail->exportRun()->isRunning())
            m_session.window().grabWindow().save(m_folder.filePath(u"exporting.png"_s));
    });
    m_panels.answerFolder(m_session.library().path(u"out"_s));
    static_cast<void>(QTest::qWaitFor([this] { return !m_detail->exportRun()->isRunning(); }));
}

void EditorTour::run()
{
    styles();
    shapes();
    editing();
    texts();
    presets();
    trouble();
    m_session.close();
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QGuiApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: editor_tour FOLDER");
    prepareEditorTest();
    EditorTour(QString::fromLocal8Bit(argv[1])).run();
}
