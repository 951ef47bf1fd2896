// The canvas under the hands of a user: real mouse, touch, touchpad, wheel and key events.

#include "tests/ui/slide/canvas_session.h"
#include "ui/slide/text_block_item.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class CanvasGesturesTest : public QObject
{
    Q_OBJECT

private slots:
    void dragMovesWithoutDrawing();
    void dragBeginsAfterTenPoints();
    void dragIsKeptOnTheCanvas();
    void hugeBlocksAreThereToBeDragged();
    void touchpadPinch();
    void twoFingersMoveAndScale();
    void controlWheel();
    void arrowKeys();
    void singleClickOnlySelects();
};

void CanvasGesturesTest::dragMovesWithoutDrawing()
{
    CanvasSession s;
    const auto *drawing = qobject_cast<TextBlockItem *>(s.find(u"mainDrawing"_s));
    const QImage before = s.grab();
    const int drawings = drawing->drawings();
    s.drag(s.at(0.5, 0.5), {72, -128});
    QCOMPARE(s.mainBlock->dragOffset(), QSizeF(72, -128));
    const QImage during = s.grab();
    QCOMPARE(drawing->drawings(), drawings);
    QVERIFY(during != before);
    s.drop(s.at(0.5, 0.5) + QPoint(72, -128));
    QCOMPARE(s.mainBlock->position(), QPointF(0.7, 0.3));
    s.window().contentItem()->forceActiveFocus();
    QCOMPARE(s.slide->style().textX, 0.5);
    QTRY_COMPARE_WITH_TIMEOUT(s.slide->style().textX, 0.7, 1000);
    QCOMPARE(s.slide->style().textY, 0.3);
}

void CanvasGesturesTest::dragBeginsAfterTenPoints()
{
    CanvasSession s;
    s.drag(s.at(0.5, 0.5), {9, 0});
    QCOMPARE(s.mainBlock->dragOffset(), QSizeF(0, 0));
    QTest::mouseMove(&s.window(), s.at(0.5, 0.5) + QPoint(12, 0));
    QCOMPARE(s.mainBlock->dragOffset(), QSizeF(12, 0));
    s.drop(s.at(0.5, 0.5) + QPoint(12, 0));
    QCOMPARE(s.mainBlock->position(), QPointF(0.5 + 12 / 360.0, 0.5));
}

void CanvasGesturesTest::dragIsKeptOnTheCanvas()
{
    CanvasSession s;
    s.drag(s.at(0.5, 0.8), {205, -40});
    QCOMPARE(s.subtitleBlock->center().x(), 385.0);
    s.drop(s.at(0.5, 0.8) + QPoint(205, -40));
    QCOMPARE(s.subtitleBlock->position().x(), 1.0);
    QCOMPARE(s.mainBlock->position(), QPointF(0.5, 0.5));
}

void CanvasGesturesTest::hugeBlocksAreThereToBeDragged()
{
    CanvasSession s(QString{});
    s.mainBlock->setStyle(TextStyle::boxed);
    s.mainBlock->setText(u"WWWWWWWWWWWWWWWWWWWWWWWW"_s);
    s.mainBlock->setPosition({0, 0.5});
    s.drag(s.at(0.1, 0.5), {180, 0});
    const QImage during = s.grab();
    s.drop(s.at(0.1, 0.5) + QPoint(180, 0));
    QCOMPARE(s.mainBlock->position(), QPointF(0.5, 0.5));
    QVERIFY(difference(during, s.grab()) <= 1);
}

void CanvasGesturesTest::touchpadPinch()
{
    CanvasSession s;
    const std::unique_ptr<QPointingDevice> touchpad(
        QTest::createTouchDevice(QInputDevice::DeviceType::TouchPad));
    const auto gesture = [&](Qt::NativeGestureType type, double value) {
        const QPointF at = s.at(0.5, 0.5);
        QNativeGestureEvent event(type, touchpad.get(), 2, at, at, s.window().mapToGlobal(at), value, {});
        QCoreApplication::sendEvent(&s.window(), &event);
    };
    for (int pinch = 0; pinch < 2; ++pinch) {
        gesture(Qt::BeginNativeGesture, 0);
        gesture(Qt::ZoomNativeGesture, 0.5);
        gesture(Qt::ZoomNativeGesture, 1.0 / 3);
        QCOMPARE(s.mainBlock->currentScale(), 2.0);
        gesture(Qt::EndNativeGesture, 0);
    }
    QCOMPARE(s.mainBlock->scale(), 4.0);
    QTRY_COMPARE_WITH_TIMEOUT(s.slide->style().textScale, 4.0, 1000);
}

void CanvasGesturesTest::twoFingersMoveAndScale()
{
    const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    QPointingDevice *const screen = device.get();
    CanvasSession s;
    const QPoint middle = s.at(0.5, 0.5);
    const auto touch = [&](QPoint first, QPoint second) {
        QTest::touchEvent(&s.window(), screen).move(0, first).move(1, second);
        s.settle();
    };
    QTest::touchEvent(&s.window(), screen).press(0, middle - QPoint(40, 0));
    QTest::touchEvent(&s.window(), screen).stationary(0).press(1, middle + QPoint(40, 0));
    for (int step = 1; step <= 12; ++step) {
        const QPoint moved(5 * step, -4 * step);
        touch(middle - QPoint(40 + 5 * step, 0) + moved, middle + QPoint(40 + 5 * step, 0) + moved);
    }
    // Both from where the fingers were when it was plain what they do.
    QCOMPARE(s.mainBlock->currentScale(), 2.0);
    QCOMPARE(s.mainBlock->dragOffset(), QSizeF(50, -40));
    QTest::touchEvent(&s.window(), screen)
        .release(0, middle + QPoint(-40, -48))
        .release(1, middle + QPoint(160, -48));
    s.settle();
    QCOMPARE(s.mainBlock->currentScale(), 1.0);
    QCOMPARE(s.mainBlock->scale(), 2.0);
    QCOMPARE(s.mainBlock->position(), QPointF(0.5 + 50 / 360.0, 0.5 - 40 / 640.0));
    QVERIFY(!s.mainBlock->isFocused());
}

void CanvasGesturesTest::controlWheel()
{
    CanvasSession s;
    const auto wheel = [&](int angle, Qt::KeyboardModifiers modifiers) {
        const QPointF at = s.at(0.5, 0.5);
        QWheelEvent event(at, s.window().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&s.window(), &event);
    };
    wheel(120, {});
    QCOMPARE(s.mainBlock->scale(), 1.0);
    wheel(120, Qt::ControlModifier);
    wheel(120, Qt::ControlModifier);
    QCOMPARE(s.mainBlock->scale(), 1.21);
    wheel(-240, Qt::ControlModifier);
    QCOMPARE(s.mainBlock->scale(), 1.0);
    for (int i = 0; i < 30; ++i)
        wheel(4, Qt::ControlModifier);
    QVERIFY(qAbs(s.mainBlock->scale() - 1.1) < 0.02);
}

void CanvasGesturesTest::arrowKeys()
{
    CanvasSession s;
    QTest::mouseClick(&s.window(), Qt::LeftButton, {}, s.at(0.5, 0.8));
    QTest::keyClick(&s.window(), Qt::Key_Right);
    QTest::keyClick(&s.window(), Qt::Key_Down, Qt::ShiftModifier);
    const QPointF center = s.subtitleBlock->center();
    QCOMPARE(center, QPointF(181, 522));
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&s.window(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(s.subtitleBlock->position().y(), 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(s.slide->style().subtitleY, 1.0, 1000);

    s.drag(s.at(0.5, 1) - QPoint(0, 3), {0, -100});
    QTest::keyClick(&s.window(), Qt::Key_Left);
    s.drop(s.at(0.5, 1) - QPoint(0, 103));
    QCOMPARE(s.subtitleBlock->center(), QPointF(180, 540));
}

void CanvasGesturesTest::singleClickOnlySelects()
{
    CanvasSession s;
    QTest::mouseClick(&s.window(), Qt::LeftButton, {}, s.at(0.5, 0.5));
    QTest::qWait(20);
    QVERIFY(!s.mainBlock->isFocused());
    QVERIFY(s.find(u"mainText"_s)->hasActiveFocus());
    QCOMPARE(s.mainBlock->position(), QPointF(0.5, 0.5));
    QTest::mouseClick(&s.window(), Qt::LeftButton, {}, s.at(0.5, 0.1));
    QTRY_VERIFY(!s.find(u"mainText"_s)->hasActiveFocus());
}

int main(int argc, char **argv)
{
    // Otherwise moves are merged until there is a frame, and a gesture begins at the last of those.
    qputenv("QML_NO_TOUCH_COMPRESSION", "1");
    return runEditorTest<CanvasGesturesTest>(argc, argv);
}

#include "tst_canvas_gestures.moc"
