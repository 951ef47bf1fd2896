// The inspector: its operations on records, then its fields and buttons in the window.

#include "model/slide_preset.h"
#include "tests/ui/editor/detail_session.h"

using namespace mosslantern;

class SlideInspectorTest : public QObject
{
    Q_OBJECT

private slots:
    void onlyPickersWriteTheColour();
    void appliesStyleToAllSlides();
    void appliesStyleToBatch();
    void savesAppliesAndDeletesPresets();
    void presetWhileEditing();
    void copiesTheStyleThatIsSeen();
    void typesInTheInspector();
    void showingATextLeavesItAlone();
    void savesAPresetByKeyboard();
};

void SlideInspectorTest::onlyPickersWriteTheColour()
{
    DetailFixture f;
    f.inspector().setTextStyle(static_cast<int>(TextStyle::modern));
    QVERIFY(!f.inspector().showsBorder() && !f.inspector().showsBoxColor());
    f.inspector().setBoxColor({0, 0, 1, 1});
    f.inspector().setTextStyle(static_cast<int>(TextStyle::classic));
    QVERIFY(f.inspector().showsBorder());
    QCOMPARE(f.slide(0)->style().boxColorHex, u"FFFFFF"_s);
    QCOMPARE(f.inspector().colorChoice(), -1);
    f.inspector().chooseColor(1);
    QCOMPARE(f.slide(0)->style().boxColorHex, u"00000000"_s);
    f.inspector().chooseColor(0);
    QCOMPARE(f.slide(0)->style().boxColorHex, u"000000"_s);
    f.inspector().setTextStyle(static_cast<int>(TextStyle::boxed));
    QCOMPARE(f.inspector().colorChoice(), 1);
    f.inspector().chooseColor(0);
    QCOMPARE(f.slide(0)->style().boxColorHex, u"FFFFFF"_s);
    QCOMPARE(f.detail.boxColor(), (RgbaColor{1, 1, 1, 1}));
}

void SlideInspectorTest::appliesStyleToAllSlides()
{
    DetailFixture f;
    QVERIFY(f.inspector().hasSlideshow() && !f.inspector().hasBatch());
    f.slide(1)->setStyle(&SlideStyle::textStyle, TextStyle::neon);
    f.slide(1)->setStyle(&SlideStyle::boxColorHex, u"12345678"_s);
    f.slide(1)->setStyle(&SlideStyle::textX, 0.1);
    f.slide(1)->setStyle(&SlideStyle::subtitleY, 0.2);
    f.slide(1)->setStyle(&SlideStyle::textScale, 3);
    f.detail.select(1);
    f.inspector().applyToAllSlides();
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.slide(i)->style(), f.slide(1)->style());
        QCOMPARE(f.slide(i)->order(), i);
        QCOMPARE(f.slide(i)->text(), QString(QChar(u'A' + i)));
    }
}

void SlideInspectorTest::appliesStyleToBatch()
{
    const QUuid batch = QUuid::createUuid();
    DetailFixture f(batch);
    const Slideshow *const sibling = f.addLetters(batch);
    const Slideshow *const stranger = f.addLetters(QUuid::createUuid());
    QVERIFY(f.inspector().hasBatch());
    f.slide(0)->setStyle(&SlideStyle::textStyle, TextStyle::modern);
    f.inspector().applyToBatch();
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.slide(i)->style().textStyle, TextStyle::modern);
        QCOMPARE(sibling->slides()[i]->style().textStyle, TextStyle::modern);
        QCOMPARE(stranger->slides()[i]->style().textStyle, TextStyle::classic);
    }
}

void SlideInspectorTest::savesAppliesAndDeletesPresets()
{
    DetailFixture f;
    SlideInspectorView &inspector = f.inspector();
    f.store().insert(presetFromSlide(u"Old"_s, *f.slide(3)));
    f.slide(0)->setStyle(&SlideStyle::textStyle, TextStyle::boxed);
    f.slide(0)->setStyle(&SlideStyle::boxColorHex, u"000000"_s);
    f.slide(0)->setStyle(&SlideStyle::textY, 0.9);
    for (const QString &blank : {u""_s, u"   "_s, u"\n"_s}) {
        inspector.setNewPresetName(blank);
        QVERIFY(!inspector.canSave());
    }
    inspector.setNewPresetName(u"  My look "_s);
    inspector.savePreset();
    QCOMPARE(inspector.presetNames(), (QStringList{u"None"_s, u"My look"_s, u"Old"_s}));
    QCOMPARE(inspector.presetChoice(), 1);
    QCOMPARE(inspector.newPresetName(), u"  My look "_s);

    f.slide(2)->setStyle(&SlideStyle::textStyle, TextStyle::neon);
    f.detail.select(2);
    inspector.applyPresetToSlide();
    QCOMPARE(f.slide(2)->style(), f.slide(0)->style());
    QCOMPARE(f.detail.boxColor(), (RgbaColor{0, 0, 0, 1}));

    inspector.deleteSelectedPreset();
    QCOMPARE(inspector.presetNames(), (QStringList{u"None"_s, u"Old"_s}));
    QCOMPARE(inspector.presetChoice(), 0);
    inspector.choosePreset(1);
    f.store().remove(inspector.selectedPreset());
    QVERIFY(!inspector.selectedPreset());
    inspector.applyPresetToSlide();
    QCOMPARE(f.slide(2)->style().textY, 0.9);
}

void SlideInspectorTest::presetWhileEditing()
{
    ScreenSession s;
    QVERIFY(s.typeOnCanvas(u"!"_s));
    auto preset = presetFromSlide(u"p"_s, *s.slide(0));
    preset->setStyle(&SlideStyle::textY, 0.25);
    preset->setStyle(&SlideStyle::textScale, 2);
    preset->setStyle(&SlideStyle::textStyle, TextStyle::neon);
    s.detail()->inspector()->setSelectedPreset(s.store().insert(std::move(preset)));
    QVERIFY(s.click(u"applyPreset"_s));
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.25));
    QCOMPARE(s.block()->scale(), 2.0);
    QCOMPARE(s.block()->style(), TextStyle::neon);
    QCOMPARE(s.block()->text(), u"One!"_s);
    QVERIFY(s.click(u"slideEntry1"_s));
    QCOMPARE(s.slide(0)->text(), u"One!"_s);
    QCOMPARE(s.slide(0)->style().textY, 0.25);
}

void SlideInspectorTest::copiesTheStyleThatIsSeen()
{
    ScreenSession s;
    SlideInspectorView *const inspector = s.detail()->inspector();
    inspector->setSelectedPreset(s.store().insert(presetFromSlide(u"p"_s, *s.slide(0))));
    s.block()->nudge(40, 0);
    inspector->applyToAllSlides();
    QVERIFY(s.slide(1)->style().textX > 0.5);
    s.block()->nudge(40, 0);
    inspector->applyPresetToSlide();
    QCOMPARE(s.block()->position(), QPointF(0.5, 0.5));
    QTest::qWait(600);
    QCOMPARE(s.slide(0)->style().textX, 0.5);
}

void SlideInspectorTest::typesInTheInspector()
{
    ScreenSession s;
    QVERIFY(s.typeOnCanvas(u"!"_s));
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

void SlideInspectorTest::showingATextLeavesItAlone()
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

void SlideInspectorTest::savesAPresetByKeyboard()
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

int main(int argc, char **argv)
{
    return runEditorTest<SlideInspectorTest>(argc, argv);
}

#include "tst_slide_inspector.moc"
