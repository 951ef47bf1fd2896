// What the canvas and its blocks do, without pixels.

#include "model/slide_preset.h"
#include "render/text/fonts.h"
#include "tests/model/test_library.h"
#include "ui/slide/draggable_text_view.h"
#include "ui/slide/slide_canvas_view.h"

#include <QtTest/QtTest>

using namespace mosslantern;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The canvas of a slide of its own.
struct Fixture
{
    Fixture()
        : slideshow(library.addSlideshow(library.addAsset(u"a.jpg"_s), {u"Main"_s}))
        , slide(slideshow->slides().constFirst())
    {
        slide->setSubtitle(u"Sub"_s);
        open();
    }

    void open()
    {
        canvas = std::make_unique<SlideCanvasView>();
        canvas->setSlide(slide);
        canvas->setSlideshow(slideshow);
    }

    /// Waits for the delayed commit that is scheduled, and says whether one was.
    bool commits() const
    {
        const bool isScheduled = canvas->commitTask().isActive();
        return QTest::qWaitFor([this] { return !canvas->commitTask().isActive(); }) && isScheduled;
    }

    TestLibrary library;
    Slideshow *slideshow;
    Slide *slide;
    std::unique_ptr<SlideCanvasView> canvas;
};

} // namespace

class SlideCanvasTest : public QObject
{
    Q_OBJECT

private slots:
    void startsFromTheSlide();
    void commitsHalfASecondAfterTheLastChange();
    void commitsTypingWithTheNextCommit();
    void commitsWhenItDisappears();
    void endsEditingAfterCommitting();
    void followsTheRecord();
    void keepsSeveralChangesOfOneCommitApart();
    void survivesTheRemovalOfItsSlide();
    void fitsItsFrame_data();
    void fitsItsFrame();

    void movesWithADrag_data();
    void movesWithADrag();
    void multipliesItsScale();
    void startsEditingOnlyWhereItMay();
    void growsWithItsLines();
};

void SlideCanvasTest::startsFromTheSlide()
{
    Fixture f;
    f.slide->setStyle(&SlideStyle::textX, 0.1);
    f.slide->setStyle(&SlideStyle::subtitleScale, 2);
    f.open();
    QCOMPARE(f.canvas->localText(), u"Main"_s);
    QCOMPARE(f.canvas->localSubtitle(), u"Sub"_s);
    QCOMPARE(f.canvas->localTextPos(), QPointF(0.1, 0.5));
    QCOMPARE(f.canvas->localSubtitlePos(), QPointF(0.5, 0.8));
    QCOMPARE(f.canvas->localSubtitleScale(), 2.0);
    QVERIFY(!f.canvas->commitTask().isActive());
}

void SlideCanvasTest::commitsHalfASecondAfterTheLastChange()
{
    Fixture f;
    QSignalSpy writes(f.slide, &Record::changed);
    f.canvas->setLocalTextPos({0.2, 0.5});
    QCOMPARE(f.canvas->commitTask().intervalAsDuration(), 500ms);
    QTest::qSleep(300);
    const int remaining = f.canvas->commitTask().remainingTime();
    f.canvas->setLocalTextPos({0.3, 0.5});
    QVERIFY2(f.canvas->commitTask().remainingTime() > remaining, "half a second after the last change");
    QCOMPARE(writes.count(), 0);
    QVERIFY(f.commits());
    QTRY_COMPARE(f.slide->style().textX, 0.3);
    QCOMPARE(writes.count(), 1);

    f.canvas->setLocalTextScale(3);
    f.canvas->setLocalSubtitlePos({0.9, 0.1});
    f.canvas->setLocalSubtitleScale(0.5);
    QVERIFY(f.commits());
    QTRY_COMPARE(f.slide->style().textScale, 3.0);
    QCOMPARE(QPointF(f.slide->style().subtitleX, f.slide->style().subtitleY), QPointF(0.9, 0.1));
    QCOMPARE(f.slide->style().subtitleScale, 0.5);
}

void SlideCanvasTest::commitsTypingWithTheNextCommit()
{
    Fixture f;
    f.canvas->setLocalText(u"Typed"_s);
    QCOMPARE(f.slide->text(), u"Main"_s);
    QVERIFY(!f.canvas->commitTask().isActive());

    f.canvas->setLocalTextScale(1.5);
    QVERIFY(f.commits());
    QTRY_COMPARE(f.slide->text(), u"Typed"_s);

    f.canvas->setLocalSubtitle({});
    f.canvas->commit();
    QCOMPARE(f.slide->subtitle(), u"Sub"_s);
    QCoreApplication::processEvents();
    QCOMPARE(f.slide->subtitle(), QString());
}

void SlideCanvasTest::commitsWhenItDisappears()
{
    Fixture f;
    f.canvas->setLocalTextPos({1, 0});
    f.canvas->setLocalText(u"Typed"_s);
    f.canvas.reset();
    QCOMPARE(f.slide->style().textX, 1.0);
    QCOMPARE(f.slide->text(), u"Typed"_s);
}

void SlideCanvasTest::endsEditingAfterCommitting()
{
    Fixture f;
    QString textAtEnd;
    connect(f.canvas.get(), &SlideCanvasView::firstResponderResigned, this,
            [&] { textAtEnd = f.slide->text(); });
    f.canvas->setLocalText(u"Typed"_s);
    f.canvas->endEditing();
    QVERIFY(textAtEnd.isNull());
    QCoreApplication::processEvents();
    QCOMPARE(textAtEnd, u"Typed"_s);
}

void SlideCanvasTest::followsTheRecord()
{
    Fixture f;
    f.canvas->setLocalText(u"Typed"_s);
    f.slide->setText(u"From the inspector"_s);
    QCOMPARE(f.canvas->localText(), u"From the inspector"_s);

    const auto preset = presetFromSlide(u"p"_s, *f.slide);
    preset->setStyle(&SlideStyle::textX, 0.2);
    preset->setStyle(&SlideStyle::textY, 0.3);
    preset->setStyle(&SlideStyle::subtitleY, 0.4);
    preset->setStyle(&SlideStyle::textScale, 2);
    preset->setStyle(&SlideStyle::textStyle, TextStyle::neon);
    QSignalSpy style(f.canvas.get(), &SlideCanvasView::localStyleChanged);
    f.slide->applyPreset(*preset);
    QCOMPARE(f.canvas->localTextPos(), QPointF(0.2, 0.3));
    QCOMPARE(f.canvas->localSubtitlePos(), QPointF(0.5, 0.4));
    QCOMPARE(f.canvas->localTextScale(), 2.0);
    QCOMPARE(f.canvas->property("textStyle").toInt(), static_cast<int>(TextStyle::neon));
    QVERIFY(!style.isEmpty());

    QSignalSpy writes(f.slide, &Record::changed);
    QVERIFY(f.commits());
    QCoreApplication::processEvents();
    QCOMPARE(writes.count(), 0);
}

void SlideCanvasTest::keepsSeveralChangesOfOneCommitApart()
{
    Fixture f;
    f.canvas->setLocalTextPos({0.1, 0.2});
    f.canvas->setLocalSubtitlePos({0.3, 0.4});
    QVERIFY(f.commits());
    QTRY_COMPARE(QPointF(f.slide->style().textX, f.slide->style().textY), QPointF(0.1, 0.2));
    QCOMPARE(QPointF(f.slide->style().subtitleX, f.slide->style().subtitleY), QPointF(0.3, 0.4));
    QCOMPARE(f.canvas->localTextPos(), QPointF(0.1, 0.2));
}

void SlideCanvasTest::survivesTheRemovalOfItsSlide()
{
    Fixture f;
    f.canvas->setLocalTextPos({0.1, 0.2});
    f.library.store().remove(f.slideshow);
    QVERIFY(f.commits());
    QCoreApplication::processEvents();
    QVERIFY(!f.canvas->slide());
    QCOMPARE(f.canvas->localText(), u"Main"_s);
}

void SlideCanvasTest::fitsItsFrame_data()
{
    QTest::addColumn<QSizeF>("area");
    QTest::addColumn<QRectF>("frame");
    QTest::newRow("as high as there is room") << QSizeF(800, 860) << QRectF(175, 30, 450, 800);
    QTest::newRow("as wide as there is room") << QSizeF(240, 860) << QRectF(30, 270, 180, 320);
    QTest::newRow("no room") << QSizeF(60, 860) << QRectF();
}

void SlideCanvasTest::fitsItsFrame()
{
    QFETCH(QSizeF, area);
    QFETCH(QRectF, frame);
    Fixture f;
    f.canvas->setArea(area);
    QCOMPARE(f.canvas->frame(), frame);
}

void SlideCanvasTest::movesWithADrag_data()
{
    QTest::addColumn<QSizeF>("translation");
    QTest::addColumn<QPointF>("position");
    QTest::newRow("inside") << QSizeF(35, -60) << QPointF(0.6, 0.4);
    QTest::newRow("over the right edge") << QSizeF(5000, 0) << QPointF(1, 0.5);
    QTest::newRow("over the top left corner") << QSizeF(-176, -301) << QPointF(0, 0);
}

void SlideCanvasTest::movesWithADrag()
{
    QFETCH(QSizeF, translation);
    QFETCH(QPointF, position);
    DraggableTextView block;
    block.setContainerSize({350, 600});
    QSignalSpy moves(&block, &DraggableTextView::positionChanged);
    block.drag(translation / 2);
    block.drag(translation);
    QCOMPARE(block.center(), QPointF(175 + translation.width(), 300 + translation.height()));
    QCOMPARE(block.position(), QPointF(0.5, 0.5));
    block.endDrag();
    QCOMPARE(block.position(), position);
    QCOMPARE(block.dragOffset(), QSizeF(0, 0));
    QCOMPARE(moves.count(), 1);
}

void SlideCanvasTest::multipliesItsScale()
{
    DraggableTextView block;
    for (int i = 0; i < 2; ++i) {
        block.magnify(1.5);
        block.magnify(2);
        block.magnify(2.005);
        QCOMPARE(block.currentScale(), 2.0);
        block.endMagnify();
    }
    QCOMPARE(block.scale(), 4.0);
    QCOMPARE(block.currentScale(), 1.0);
    block.setScale(1);
    for (int i = 0; i < 3; ++i) {
        block.magnify(0.5);
        block.endMagnify();
    }
    QCOMPARE(block.drawnScale(), 0.125);
}

void SlideCanvasTest::startsEditingOnlyWhereItMay()
{
    DraggableTextView block;
    block.doubleClick({3, 4});
    QVERIFY(!block.isFocused());
    QVERIFY(!block.clickLocation());
    block.setIsEditable(true);
    block.doubleClick({3, 4});
    QVERIFY(block.isFocused());
    QCOMPARE(block.clickLocation(), QPointF(3, 4));
    block.setIsFocused(false);
    block.startEditing();
    QVERIFY(!block.clickLocation());
}

void SlideCanvasTest::growsWithItsLines()
{
    DraggableTextView block;
    block.setContainerSize({350, 600});
    block.setText(u"Short"_s);
    QCOMPARE(block.frameSize().width(), 315.0);
    const double oneLine = block.frameSize().height();
    block.setText(u"Short\n\n"_s);
    QCOMPARE(block.frameSize().height(), 3 * oneLine - 2);
    block.setText(u"m"_s.repeated(60));
    QVERIFY(block.frameSize().width() > 350);
    QCOMPARE(block.frameSize().width(), block.block().size().width());
    block.compose(u"ab"_s);
    QCOMPARE(block.frameSize().width(), 315.0);
}

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    if (const Result<> fonts = registerFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    SlideCanvasTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_slide_canvas.moc"
