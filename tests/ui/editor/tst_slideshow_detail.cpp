// The slideshow editor and its inspector: first their operations on records, then the window.

#include "content/openai_service.h"
#include "model/slide_preset.h"
#include "tests/ui/editor/editor_session.h"
#include "tests/ui/test_file_panels.h"
#include "ui/editor/draggable_text_view.h"
#include "ui/editor/slideshow_detail_view.h"

#include <QtCore/QDir>
#include <qpa/qwindowsysteminterface.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// An editor on a slideshow of four slides, without a window.
struct Fixture
{
    explicit Fixture(const QUuid &batch = {})
        : context(session.store(), panels, service, Preferences(QString()))
        , slideshow(addSlideshow(batch))
    {
        detail.setContext(&context);
        detail.setSlideshow(slideshow);
    }

    Slideshow *addSlideshow(const QUuid &batch)
    {
        return session.addSlideshow(picture, {u"A"_s, u"B"_s, u"C"_s, u"D"_s}, AspectRatio::square, batch);
    }

    Slide *slide(int stored) const { return slideshow->slides()[stored]; }
    SlideInspectorView &inspector() { return *detail.inspector(); }

    EditorSession session;
    QString picture = session.addPicture(u"photo.jpg"_s, {300, 300});
    TestFilePanels panels;
    OpenAIService service;
    ScreenContext context;
    Slideshow *slideshow;
    SlideshowDetailView detail;
};

constexpr RgbaColor white{1, 1, 1, 1};
constexpr RgbaColor black{0, 0, 0, 1};

/// The editor's screen in a window.
class ScreenSession : public EditorSession
{
public:
    ScreenSession()
        : context(store(), panels, service, Preferences(QString()))
        , slideshow(addSlideshow(addPicture(u"photo.jpg"_s, {400, 700}), {u"One"_s, u"Two"_s, u"Three"_s}))
    {
        root = show(
            u"SlideshowDetailScreen"_s,
            {{u"context"_s, QVariant::fromValue(&context)}, {u"slideshow"_s, QVariant::fromValue(slideshow)}},
            {1200, 960});
    }

    ~ScreenSession() { close(); }
    Q_DISABLE_COPY_MOVE(ScreenSession)

    bool click(const QString &name)
    {
        const QQuickItem *const item = find(name);
        if (!item || !item->isEnabled())
            return false;
        QTest::mouseClick(&window(), Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
        settle();
        return true;
    }

    Slide *slide(int index) const { return slideshow->slides()[index]; }
    DraggableTextView *block() const
    {
        return find(u"canvasLoader"_s)->findChild<DraggableTextView *>(u"mainBlock"_s);
    }

    TestFilePanels panels;
    OpenAIService service;
    ScreenContext context;
    Slideshow *slideshow;
    QQuickItem *root;
};

} // namespace

class SlideshowDetailTest : public QObject
{
    Q_OBJECT

private slots:
    void opensOnTheFirstInOrder();
    void selects();
    void losesItsSlideshow();
    void styleLeavesTheColour();
    void pickersWriteTheColour();
    void appliesStyleToAllSlides();
    void appliesStyleToBatch();
    void savesAppliesAndDeletesPresets();
    void exports();
    void reportsFailedExports();

    void selectingKeepsTheDrag();
    void presetWhileEditing();
    void copiesTheStyleThatIsSeen();
    void typesInTheInspector();
    void showingATextLeavesItAlone();
    void inputDuringAnExportIsDropped();
    void savesAPresetByKeyboard();
    void columnsKeepTheirPlaces();
    void closes_data();
    void closes();
};

void SlideshowDetailTest::opensOnTheFirstInOrder()
{
    Fixture f;
    f.slide(0)->setOrder(3);
    f.slide(3)->setOrder(0);
    f.slide(1)->setOrder(1);
    f.slide(0)->setBoxColorHex(u"112233"_s);
    f.slide(3)->setBoxColorHex(u"445566"_s);
    SlideshowDetailView detail;
    detail.setContext(&f.context);
    detail.setSlideshow(f.slideshow);
    QCOMPARE(detail.slides(), (QList<Slide *>{f.slide(3), f.slide(1), f.slide(2), f.slide(0)}));
    QCOMPARE(detail.selectedSlide(), f.slide(3));
    QCOMPARE(detail.inspector()->slide(), f.slide(3));
    QCOMPARE(detail.boxColor(), colorFromHex(u"112233"_s));
    QCOMPARE(f.slide(3)->boxColorHex(), u"445566"_s);

    for (Slide *slide : f.slideshow->slides())
        slide->setOrder(0);
    SlideshowDetailView repairing;
    repairing.setContext(&f.context);
    repairing.setSlideshow(f.slideshow);
    QCOMPARE(f.slide(2)->order(), 2);
}

void SlideshowDetailTest::selects()
{
    Fixture f;
    f.slide(2)->setBoxColorHex(u"8A4BC6"_s);
    QSignalSpy selections(&f.detail, &SlideshowDetailView::selectedSlideChanged);
    f.detail.select(2);
    QCOMPARE(f.detail.selectedSlideIndex(), 2);
    QCOMPARE(f.inspector().slide(), f.slide(2));
    QCOMPARE(f.detail.boxColor(), colorFromHex(u"8A4BC6"_s));
    QCOMPARE(f.inspector().colorChoice(), -1);
    QCOMPARE(f.slide(2)->boxColorHex(), u"8A4BC6"_s);
    f.detail.select(4);
    f.detail.select(-1);
    QCOMPARE(f.detail.selectedSlideIndex(), 2);
    QCOMPARE(selections.count(), 1);
}

void SlideshowDetailTest::losesItsSlideshow()
{
    Fixture f;
    f.session.store().remove(f.slideshow);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(f.detail.slides().isEmpty());
    QVERIFY(!f.detail.selectedSlide());
    QVERIFY(!f.inspector().slide());
    f.inspector().setText(u"nowhere"_s);
    f.inspector().applyToAllSlides();
    f.inspector().savePreset();
    QCOMPARE(f.inspector().presets().count(), 0);
}

void SlideshowDetailTest::styleLeavesTheColour()
{
    Fixture f;
    f.inspector().setTextStyle(static_cast<int>(TextStyle::modern));
    QVERIFY(!f.inspector().showsBorder() && !f.inspector().showsBoxColor());
    f.inspector().setBoxColor({0, 0, 1, 1});
    QCOMPARE(f.slide(0)->boxColorHex(), u"FFFFFF"_s);
    f.inspector().setTextStyle(static_cast<int>(TextStyle::classic));
    QVERIFY(f.inspector().showsBorder());
    QCOMPARE(f.slide(0)->boxColorHex(), u"FFFFFF"_s);
    QCOMPARE(f.inspector().colorChoice(), -1);
    QCOMPARE(f.inspector().styleNames(), (QStringList{u"Classic"_s, u"Boxed"_s, u"Modern"_s, u"Neon"_s}));
}

void SlideshowDetailTest::pickersWriteTheColour()
{
    Fixture f;
    QCOMPARE(f.inspector().colorChoice(), -1);
    f.inspector().chooseColor(1);
    QCOMPARE(f.slide(0)->boxColorHex(), u"00000000"_s);
    f.inspector().chooseColor(0);
    QCOMPARE(f.slide(0)->boxColorHex(), u"000000"_s);
    f.inspector().setTextStyle(static_cast<int>(TextStyle::boxed));
    QCOMPARE(f.inspector().colorChoice(), 1);
    f.inspector().chooseColor(0);
    QCOMPARE(f.slide(0)->boxColorHex(), u"FFFFFF"_s);
    QCOMPARE(f.detail.boxColor(), white);
}

void SlideshowDetailTest::appliesStyleToAllSlides()
{
    Fixture f;
    QVERIFY(f.inspector().hasSlideshow() && !f.inspector().hasBatch());
    f.slide(1)->setTextStyle(TextStyle::neon);
    f.slide(1)->setBoxColorHex(u"12345678"_s);
    f.slide(1)->setTextX(0.1);
    f.slide(1)->setSubtitleY(0.2);
    f.slide(1)->setTextScale(3);
    f.detail.select(1);
    f.inspector().applyToAllSlides();
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.slide(i)->style(), f.slide(1)->style());
        QCOMPARE(f.slide(i)->order(), i);
        QCOMPARE(f.slide(i)->text(), QString(QChar(u'A' + i)));
    }
}

void SlideshowDetailTest::appliesStyleToBatch()
{
    const QUuid batch = QUuid::createUuid();
    Fixture f(batch);
    const Slideshow *const sibling = f.addSlideshow(batch);
    const Slideshow *const stranger = f.addSlideshow(QUuid::createUuid());
    QVERIFY(f.inspector().hasBatch());
    f.slide(0)->setTextStyle(TextStyle::modern);
    f.inspector().applyToBatch();
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.slide(i)->textStyle(), TextStyle::modern);
        QCOMPARE(sibling->slides()[i]->textStyle(), TextStyle::modern);
        QCOMPARE(stranger->slides()[i]->textStyle(), TextStyle::classic);
    }
}

void SlideshowDetailTest::savesAppliesAndDeletesPresets()
{
    Fixture f;
    SlideInspectorView &inspector = f.inspector();
    QCOMPARE(inspector.presetNames(), QStringList{u"None"_s});
    f.session.store().insert(presetFromSlide(u"Old"_s, *f.slide(3)));
    f.slide(0)->setTextStyle(TextStyle::boxed);
    f.slide(0)->setBoxColorHex(u"000000"_s);
    f.slide(0)->setTextY(0.9);
    for (const QString &blank : {u""_s, u"   "_s, u"\n"_s}) {
        inspector.setNewPresetName(blank);
        QVERIFY(!inspector.canSave());
    }
    inspector.setNewPresetName(u"  My look "_s);
    QVERIFY(inspector.canSave());
    inspector.savePreset();
    QCOMPARE(inspector.presetNames(), (QStringList{u"None"_s, u"My look"_s, u"Old"_s}));
    QCOMPARE(inspector.presetChoice(), 1);
    QCOMPARE(inspector.newPresetName(), u"  My look "_s);

    f.slide(2)->setTextStyle(TextStyle::neon);
    f.detail.select(2);
    inspector.applyPresetToSlide();
    QCOMPARE(f.slide(2)->style(), f.slide(0)->style());
    QCOMPARE(f.detail.boxColor(), black);
    QVERIFY(inspector.showsBoxColor());
    QCOMPARE(inspector.colorChoice(), 1);

    inspector.deleteSelectedPreset();
    QCOMPARE(inspector.presetNames(), (QStringList{u"None"_s, u"Old"_s}));
    QVERIFY(!inspector.selectedPreset());
    QCOMPARE(inspector.presetChoice(), 0);
    inspector.choosePreset(1);
    f.session.store().remove(inspector.selectedPreset());
    QVERIFY(!inspector.selectedPreset());
    inspector.applyPresetToSlide();
    QCOMPARE(f.slide(2)->textY(), 0.9);
}

void SlideshowDetailTest::exports()
{
    Fixture f;
    f.slide(0)->setOrder(9);
    f.detail.setClock([] { return QDateTime({2025, 3, 3}, {14, 5, 9}); });
    f.detail.exportSlideshow();
    QCOMPARE(f.panels.folderRequest().acceptLabel, u"Export"_s);
    QCOMPARE(f.panels.folderRequest().message, u"Choose a folder name and location for exported slides"_s);
    QCOMPARE(f.panels.folderRequest().suggestedName, u"Slideshow_2025-03-03_14-05-09"_s);
    f.panels.answerFolder({});
    QVERIFY(f.panels.openedFolders().isEmpty());

    f.detail.exportSlideshow();
    QSignalSpy progress(&f.detail, &SlideshowDetailView::exportProgressed);
    const QString folder = f.session.library().path(u"out/deep"_s);
    f.panels.answerFolder(folder);
    QCOMPARE(f.panels.openedFolders(), QStringList{folder});
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4);
    QCOMPARE(QImage(folder + u"/Slide_1.png"_s).size(), QSize(240, 240));
    QCOMPARE(progress.count(), 6);
    QVERIFY(!f.detail.isExporting());
}

void SlideshowDetailTest::reportsFailedExports()
{
    Fixture f;
    f.detail.exportSlideshow();
    const ConsoleCapture console;
    f.panels.answerFolder(f.session.addPicture(u"in the way.png"_s, {4, 4}) + u"/folder"_s);
    QCOMPARE(console.lines().size(), 1);
    QVERIFY(console.lines().constFirst().startsWith(u"Failed to export: "_s));
    QVERIFY(f.panels.openedFolders().isEmpty());
}

void SlideshowDetailTest::selectingKeepsTheDrag()
{
    ScreenSession s;
    QPointer<DraggableTextView> block = s.block();
    block->drag({10, 0});
    block->endDrag();
    const double x = block->position().x();
    QVERIFY(x > 0.5);
    QVERIFY(s.click(u"slideEntry2"_s));
    QCOMPARE(s.slide(0)->textX(), x);
    QVERIFY(!block);
    QCOMPARE(s.block()->text(), u"Three"_s);
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.5));
    QTest::keyClick(&s.window(), Qt::Key_Up);
    QTRY_COMPARE(s.block()->text(), u"Two"_s);
}

void SlideshowDetailTest::presetWhileEditing()
{
    ScreenSession s;
    s.block()->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    s.type(u"!"_s);
    auto preset = presetFromSlide(u"p"_s, *s.slide(0));
    preset->setTextY(0.25);
    preset->setTextScale(2);
    preset->setTextStyle(TextStyle::neon);
    auto *const detail = s.root->findChild<SlideshowDetailView *>();
    detail->inspector()->setSelectedPreset(s.store().insert(std::move(preset)));
    QVERIFY(s.click(u"applyPreset"_s));
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.25));
    QCOMPARE(s.block()->scale(), 2.0);
    QCOMPARE(s.block()->style(), TextStyle::neon);
    QCOMPARE(s.block()->text(), u"One!"_s);
    QVERIFY(s.click(u"slideEntry1"_s));
    QCOMPARE(s.slide(0)->text(), u"One!"_s);
    QCOMPARE(s.slide(0)->textY(), 0.25);
}

void SlideshowDetailTest::copiesTheStyleThatIsSeen()
{
    ScreenSession s;
    SlideInspectorView *const inspector = s.root->findChild<SlideshowDetailView *>()->inspector();
    inspector->setSelectedPreset(s.store().insert(presetFromSlide(u"p"_s, *s.slide(0))));
    s.block()->nudge(40, 0);
    inspector->applyToAllSlides();
    QVERIFY(s.slide(1)->textX() > 0.5);
    s.block()->nudge(40, 0);
    inspector->applyPresetToSlide();
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.5));
    QTest::qWait(600);
    QCOMPARE(s.slide(0)->textX(), 0.5);
}

void SlideshowDetailTest::showingATextLeavesItAlone()
{
    ScreenSession s;
    const QString text = u"a\r\nb\u00a0c\u2028d"_s;
    s.slide(1)->setText(text);
    QVERIFY(s.click(u"slideEntry1"_s));
    QCOMPARE(s.find(u"mainFieldArea"_s)->property("text").toString(), u"a\n\nb c\nd"_s);
    s.block()->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s));
    QVERIFY(s.click(u"slideEntry0"_s));
    QCOMPARE(s.slide(1)->text(), text);

    QVERIFY(s.click(u"slideEntry1"_s));
    QVERIFY(s.click(u"mainFieldArea"_s));
    QTest::keyClick(&s.window(), Qt::Key_End, Qt::ControlModifier);
    s.type(u"!"_s);
    QCOMPARE(s.slide(1)->text(), u"a\n\nb\u00a0c\nd!"_s);
}

void SlideshowDetailTest::inputDuringAnExportIsDropped()
{
    ScreenSession s;
    QSignalSpy dismissed(s.root, SIGNAL(dismissed()));
    const auto *const detail = s.root->findChild<SlideshowDetailView *>();
    const QPointF done = s.find(u"done"_s)->mapToScene({10, 10});
    connect(detail, &SlideshowDetailView::exportProgressed, this, [&] {
        if (!detail->isExporting() || detail->exportedSlides() != 1)
            return;
        for (const auto &[buttons, type] : {std::pair(Qt::LeftButton, QEvent::MouseButtonPress),
                                            std::pair(Qt::NoButton, QEvent::MouseButtonRelease)})
            QWindowSystemInterface::handleMouseEvent<QWindowSystemInterface::AsynchronousDelivery>(
                &s.window(), done, s.window().mapToGlobal(done), buttons, Qt::LeftButton, type);
    });
    QVERIFY(s.click(u"export"_s));
    s.panels.answerFolder(s.library().path(u"out"_s));
    s.settle();
    QCOMPARE(dismissed.count(), 0);
    QVERIFY(s.click(u"done"_s));
    QCOMPARE(dismissed.count(), 1);
}

void SlideshowDetailTest::typesInTheInspector()
{
    ScreenSession s;
    s.block()->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    s.type(u"!"_s);
    QCOMPARE(s.slide(0)->text(), u"One"_s);
    QVERIFY(s.click(u"mainFieldArea"_s));
    QTest::keyClick(&s.window(), Qt::Key_End, Qt::ControlModifier);
    s.type(u"?"_s);
    QCOMPARE(s.slide(0)->text(), u"One!?"_s);
    QCOMPARE(s.block()->text(), u"One!?"_s);

    QVERIFY(s.click(u"subtitleFieldArea"_s));
    s.type(u"Hi"_s);
    QCOMPARE(s.slide(0)->subtitle(), u"Hi"_s);
    s.settle();
    QVERIFY(s.find(u"subtitleDrawing"_s));
    QVERIFY(s.click(u"slideEntry1"_s));
    QCOMPARE(s.find(u"subtitleFieldArea"_s)->property("text").toString(), QString());
    QCOMPARE(s.find(u"mainFieldArea"_s)->property("text").toString(), u"Two"_s);
    QCOMPARE(s.slide(0)->subtitle(), u"Hi"_s);

    const double threeLines = s.find(u"mainField"_s)->height();
    s.slide(1)->setText(u"1\n2\n3\n4\n5"_s);
    const double fiveLines = s.find(u"mainField"_s)->height();
    s.slide(1)->setText(u"1\n2\n3\n4\n5\n6\n7"_s);
    QVERIFY(fiveLines > threeLines);
    QCOMPARE(s.find(u"mainField"_s)->height(), fiveLines);
}

void SlideshowDetailTest::savesAPresetByKeyboard()
{
    ScreenSession s;
    QVERIFY(!s.click(u"applyPreset"_s));
    QVERIFY(!s.click(u"deletePreset"_s));
    QVERIFY(s.click(u"savePreset"_s));
    QTRY_VERIFY(s.find(u"presetName"_s) && s.find(u"presetName"_s)->hasActiveFocus());
    QCOMPARE(s.find(u"confirmPreset"_s)->isEnabled(), false);
    s.type(u"Mine"_s);
    QTest::keyClick(&s.window(), Qt::Key_Return);
    QTRY_VERIFY(!s.find(u"presetName"_s));
    QCOMPARE(s.store().all<SlidePreset>().size(), 1U);
    QCOMPARE(s.find(u"presetPicker"_s)->property("displayText").toString(), u"Mine"_s);
    QVERIFY(s.click(u"savePreset"_s));
    QTRY_VERIFY(s.find(u"presetName"_s) && s.find(u"presetName"_s)->hasActiveFocus());
    QCOMPARE(s.find(u"presetName"_s)->property("text").toString(), u"Mine"_s);
    QTest::keyClick(&s.window(), Qt::Key_Escape);
    QTRY_VERIFY(!s.find(u"presetName"_s));
    QCOMPARE(s.store().all<SlidePreset>().size(), 1U);
}

void SlideshowDetailTest::columnsKeepTheirPlaces()
{
    ScreenSession s;
    QCOMPARE(s.find(u"inspectorColumn"_s)->width(), 320.0);
    const QQuickItem *const column = s.find(u"slideColumn"_s);
    for (const int target : {20, 600}) {
        const QPoint handle(static_cast<int>(column->width()), 400);
        QTest::mousePress(&s.window(), Qt::LeftButton, {}, handle);
        QTest::mouseMove(&s.window(), {(handle.x() + target) / 2, 400});
        QTest::mouseMove(&s.window(), {target, 400});
        QTest::mouseRelease(&s.window(), Qt::LeftButton, {}, {target, 400});
        s.settle();
        QCOMPARE(column->width(), target < 150 ? 150.0 : 200.0);
    }
    s.window().resize(1200, 360);
    QVERIFY(s.click(u"slideEntry0"_s));
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&s.window(), Qt::Key_Down);
    QTRY_COMPARE(s.find(u"slideEntry2"_s)->mapToScene({0, 120 + 16}).y(), 360.0);
    s.store().remove(s.slideshow);
    s.settle();
    QVERIFY(!s.find(u"inspectorColumn"_s));
    QVERIFY(!s.find(u"canvasContent"_s));
    QVERIFY(!s.grab().isNull());
}

void SlideshowDetailTest::closes_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Done") << u"done"_s;
    QTest::newRow("close button") << u"close"_s;
    QTest::newRow("Escape") << QString();
}

void SlideshowDetailTest::closes()
{
    QFETCH(QString, button);
    ScreenSession s;
    QSignalSpy dismissed(s.root, SIGNAL(dismissed()));
    if (button.isEmpty()) {
        QVERIFY(s.click(u"slideEntry0"_s));
        QTest::keyClick(&s.window(), Qt::Key_Escape);
    } else {
        QVERIFY(s.click(button));
    }
    QCOMPARE(dismissed.count(), 1);
    Slide *const slide = s.slide(0);
    s.block()->type(u"Changed"_s);
    s.block()->drag({30, 40});
    delete s.root;
    QCOMPARE(slide->text(), u"Changed"_s);
}

int main(int argc, char **argv)
{
    return runEditorTest<SlideshowDetailTest>(argc, argv);
}

#include "tst_slideshow_detail.moc"
