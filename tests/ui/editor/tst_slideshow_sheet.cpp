// The slideshow editor as a sheet of the main window.

#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"
#include "ui/slide/draggable_text_view.h"

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

class SheetSession : public UiSession
{
public:
    SheetSession()
        : slideshow(library().addSlideshow(library().addAsset(u"a.jpg"_s), {u"One"_s, u"Two"_s}))
    {
        open();
    }

    bool openEditor()
    {
        QMetaObject::invokeMethod(view(), "showSlideshowEditor", Q_ARG(mosslantern::Slideshow *, slideshow));
        return QTest::qWaitFor([this] {
            const QQuickItem *const list = find(u"slideList"_s);
            return list && list->hasActiveFocus();
        });
    }
    DraggableTextView *block() const
    {
        return find(u"canvasLoader"_s)->findChild<DraggableTextView *>(u"mainBlock"_s);
    }

    Slideshow *slideshow;
};

} // namespace

class SlideshowSheetTest : public QObject
{
    Q_OBJECT

private slots:
    void escapeDoesNotEndEditing();
    void keyboardReachesEverything();
    void closingWritesWhatIsEdited_data();
    void closingWritesWhatIsEdited();
    void closingWritesWhatIsDragged();
    void outlivesItsSlideshow();
};

void SlideshowSheetTest::escapeDoesNotEndEditing()
{
    SheetSession s;
    QVERIFY(s.openEditor());
    s.block()->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    s.key(Qt::Key_Escape);
    QTest::qWait(200);
    QVERIFY(s.find(u"textEdit"_s));
    QVERIFY(s.click(u"slideEntry1"_s));
    s.key(Qt::Key_Escape);
    QTRY_VERIFY(!s.find(u"slideList"_s));
}

void SlideshowSheetTest::keyboardReachesEverything()
{
    SheetSession s;
    s.slideshow->slides()[0]->setSubtitle(u"Below"_s);
    QVERIFY(s.openEditor());
    s.settle();
    QStringList reached;
    for (int i = 0; i < 11; ++i) {
        s.key(Qt::Key_Tab);
        reached.append(s.window()->activeFocusItem()->objectName());
    }
    QCOMPARE(reached,
             (QStringList{u"mainText"_s, u"subtitleText"_s, u"mainFieldArea"_s, u"subtitleFieldArea"_s,
                          u"stylePicker"_s, u"borderPicker"_s, u"applyToAll"_s, u"presetPicker"_s,
                          u"savePreset"_s, u"close"_s, u"done"_s}));
    for (int i = 0; i < 2; ++i)
        s.key(Qt::Key_Tab, Qt::ShiftModifier);
    const QQuickItem *const button = s.find(u"savePreset"_s);
    const QQuickItem *const inspector = s.find(u"inspectorColumn"_s);
    QVERIFY(inspector->contains(button->mapToItem(inspector, button->boundingRect().bottomRight())));
    s.key(Qt::Key_Return);
    QTRY_VERIFY(s.find(u"presetName"_s) && s.find(u"presetName"_s)->hasActiveFocus());
    s.key(Qt::Key_Escape);
    QTRY_VERIFY(!s.find(u"presetName"_s));
    QVERIFY(s.find(u"savePreset"_s)->hasActiveFocus());
}

void SlideshowSheetTest::closingWritesWhatIsEdited_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Done") << u"done"_s;
    QTest::newRow("close button") << u"close"_s;
}

void SlideshowSheetTest::closingWritesWhatIsEdited()
{
    QFETCH(QString, button);
    SheetSession s;
    QVERIFY(s.openEditor());
    QVERIFY(s.click(u"slideEntry1"_s));
    QTRY_COMPARE(s.block()->text(), u"Two"_s);
    s.block()->startEditing();
    QTRY_VERIFY(s.find(u"textEdit"_s) && s.find(u"textEdit"_s)->hasActiveFocus());
    s.type(u"!"_s);
    QVERIFY(s.click(button));
    QTRY_COMPARE(s.slideshow->slides()[1]->text(), u"Two!"_s);
    QTRY_VERIFY(!s.find(u"slideList"_s));
    QVERIFY(s.openEditor());
    QCOMPARE(s.block()->text(), u"One"_s);
}

void SlideshowSheetTest::closingWritesWhatIsDragged()
{
    SheetSession s;
    QVERIFY(s.openEditor());
    s.settle();
    const QPoint start = s.find(u"mainText"_s)->mapToScene({100, 10}).toPoint();
    QTest::mousePress(s.window(), Qt::LeftButton, {}, start);
    for (int step = 1; step <= 5; ++step)
        QTest::mouseMove(s.window(), start + QPoint(0, 20 * step));
    const double y = s.block()->center().y() / s.block()->containerSize().height();
    QVERIFY(y > 0.55);
    s.key(Qt::Key_Escape);
    QTRY_VERIFY(!s.find(u"slideList"_s));
    QTest::mouseRelease(s.window(), Qt::LeftButton, {}, start);
    QTRY_COMPARE(s.slideshow->slides()[0]->style().textY, y);
}

void SlideshowSheetTest::outlivesItsSlideshow()
{
    SheetSession s;
    QVERIFY(s.openEditor());
    s.store().remove(s.slideshow);
    s.settle();
    QVERIFY(!s.find(u"mainText"_s));
    QVERIFY(s.click(u"done"_s));
    QTRY_VERIFY(!s.find(u"slideList"_s));
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    SlideshowSheetTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_slideshow_sheet.moc"
