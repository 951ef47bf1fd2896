#include "content/slide_documents.h"
#include "model/content_template.h"
#include "tests/ui/generator/generator_test.h"

#include <QtGui/QClipboard>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class GeneratorPanelTest : public GeneratorTest
{
    Q_OBJECT

private slots:
    void guardsGenerating_data()
    {
        QTest::addColumn<int>("assets");
        QTest::addColumn<bool>("isAiMode");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isEnabled");
        QTest::newRow("nothing to draw from") << 0 << false << u""_s << u"Add Assets First"_s << false;
        QTest::newRow("AI does not help") << 0 << true << u"key"_s << u"Add Assets First"_s << false;
        QTest::newRow("plain") << 2 << false << u""_s << u"Generate 7 "_s << true;
        QTest::newRow("no key") << 2 << true << u""_s << u"Generate 7 with AI"_s << false;
        QTest::newRow("blank key") << 2 << true << u" "_s << u"Generate 7 with AI"_s << true;
    }
    void guardsGenerating()
    {
        QFETCH(const int, assets);
        QFETCH(const bool, isAiMode);
        QFETCH(const QString, key);
        openScreen(assets);
        generator().setBulkCount(7);
        generator().setIsAiMode(isAiMode);
        generator().setOpenAiApiKey(key);
        generator().setTextInput(u"[]"_s);
        QTEST(text(u"generate"_s), "text");
        QTEST(isEnabled(u"generate"_s), "isEnabled");
    }

    void generatesOnceWhileAKeyIsHeld()
    {
        openScreen(1);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            const size_t before = store().all<Slideshow>().size();
            setFocus(u"generate"_s);
            session().hold(key);
            QTRY_COMPARE(store().all<Slideshow>().size(), before + 1);
        }
    }

    void refusesWhatIsTooLongToPaste()
    {
        openScreen(1);
        generator().setTextInput(u"before"_s);
        QVERIFY(clickInPanel(u"contentEditor"_s));
        const auto refusals = [this] {
            const QList<QObject *> notices = session().window()->findChildren<QObject *>(u"pasteRefusal"_s);
            return std::ranges::count_if(notices, [](QObject *n) { return n->property("visible").toBool(); });
        };
        QGuiApplication::clipboard()->setText(QString(1'400'000, u'x'));
        session().key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(generator().textInput(), u"before"_s);
        QCOMPARE(refusals(), 1);
        session().key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(refusals(), 0);
        // What is replaced does not count.
        QGuiApplication::clipboard()->setText(QString(100'000, u'y'));
        session().key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(generator().textInput(), QString(100'000, u'y'));
        QCOMPARE(refusals(), 0);
    }

    void storesTheKeyAtOnce()
    {
        openScreen(1);
        QVERIFY(!isShown(u"apiKey"_s) && !isShown(u"batchName"_s));
        QVERIFY(session().click(u"aiSwitch"_s));
        QVERIFY(!isEnabled(u"generate"_s));
        QVERIFY(session().click(u"apiKey"_s));
        session().type(u"k"_s);
        QCOMPARE(session().preferences().openAiApiKey(), u"k"_s);
        QVERIFY(isEnabled(u"generate"_s));
        QCOMPARE(property(u"apiKey"_s, "displayText").toString().contains(u'k'), false);
        session().key(Qt::Key_Backspace);
        QCOMPARE(session().preferences().openAiApiKey(), QString());

        QVERIFY(session().click(u"batchName"_s));
        session().type(u"Name"_s);
        setFocus(u"customPrompt"_s);
        session().key(Qt::Key_A, Qt::ControlModifier);
        session().type(u"Goal"_s);
        QVERIFY(session().click(u"aiSwitch"_s));
        QVERIFY(!isShown(u"batchName"_s));
        QCOMPARE(generator().batchName() + generator().customPrompt(), u"NameGoal"_s);
    }

    void explainsTheKey()
    {
        openScreen(0);
        generator().setIsAiMode(true);
        const QString reason =
            u"To keep subscription costs low, we ask users to provide their own OpenAI API key."_s;
        for (const bool byKey : {true, false}) {
            QVERIFY(session().click(u"apiKeyInfo"_s));
            QTRY_VERIFY(session().findText(reason));
            QTest::qWait(200);
            if (byKey)
                session().key(Qt::Key_Escape);
            else
                QTest::mouseClick(session().window(), Qt::LeftButton, {}, {900, 400});
            QTRY_VERIFY(!session().findText(reason));
        }
    }

    void choosesTheSource()
    {
        openScreen(1);
        Collection *const flowers = store().insert(std::make_unique<Collection>(u"Flowers"_s));
        Collection *const roses = store().insert(std::make_unique<Collection>(u"Roses"_s));
        session().library().addAsset(u"rose"_s, roses);
        session().library().addAsset(u"rose 2"_s, roses);
        settle();
        QCOMPARE(text(u"availableAssets"_s), u"3 assets available"_s);
        QCOMPARE(text(u"sourcePicker"_s), QString());
        QCOMPARE(property(u"sourcePicker"_s, "displayText"), u"All Assets"_s);

        setFocus(u"sourcePicker"_s);
        session().key(Qt::Key_Down);
        QCOMPARE(generator().selectedCollection(), flowers);
        QCOMPARE(text(u"availableAssets"_s), u"0 assets available"_s);
        QCOMPARE(text(u"generate"_s), u"Add Assets First"_s);
        session().key(Qt::Key_Down);
        QCOMPARE(generator().selectedCollection(), roses);
        QCOMPARE(text(u"availableAssets"_s), u"2 assets available"_s);

        store().remove(flowers);
        roses->setName(u"All roses"_s);
        settle();
        QCOMPARE(property(u"sourcePicker"_s, "displayText"), u"All roses"_s);
        store().remove(roses->assets().first());
        settle();
        QCOMPARE(text(u"availableAssets"_s), u"1 asset available"_s);
        store().remove(roses);
        settle();
        QCOMPARE(generator().selectedCollection(), nullptr);
        QCOMPARE(property(u"sourcePicker"_s, "displayText"), u"All Assets"_s);
        QCOMPARE(text(u"availableAssets"_s), u"2 assets available"_s);
    }

    void followsTheStyle()
    {
        openScreen(0);
        const auto shows = [&](const QString &picker, int choice) {
            return isShown(picker) && property(picker, "currentIndex").toInt() == choice;
        };
        QVERIFY(shows(u"generatorBorder"_s, 0) && !isShown(u"generatorBoxColor"_s));
        QVERIFY(session().click(u"generatorStyle1"_s));
        QVERIFY(shows(u"generatorBoxColor"_s, 0) && !isShown(u"generatorBorder"_s));
        QCOMPARE(hexFromColor(generator().boxColor()), u"FFFFFF"_s);
        QVERIFY(session().click(u"generatorStyle3"_s));
        QVERIFY(!isShown(u"generatorBoxColor"_s) && !isShown(u"generatorBorder"_s));
        QCOMPARE(hexFromColor(generator().boxColor()), u"FFFFFF"_s);
        QVERIFY(session().click(u"generatorStyle0"_s));
        QVERIFY(session().click(u"generatorBorder1"_s));
        QVERIFY(shows(u"generatorBorder"_s, 1));
        QCOMPARE(hexFromColor(generator().boxColor()), u"00000000"_s);

        setFocus(u"shapePicker"_s);
        session().key(Qt::Key_Down);
        QCOMPARE(generator().selectedAspectRatio(), AspectRatio::instagram);
        QCOMPARE(property(u"shapePicker"_s, "displayText"), u"Instagram (4:5)"_s);
    }

    void slidersAnswerKeysAndWheel()
    {
        openScreen(0);
        setFocus(u"bulkCountSlider"_s);
        for (const auto &[key, count] :
             {std::pair(Qt::Key_Right, 2), std::pair(Qt::Key_PageUp, 12), std::pair(Qt::Key_End, 50),
              std::pair(Qt::Key_Right, 50), std::pair(Qt::Key_Left, 49), std::pair(Qt::Key_Home, 1)}) {
            session().key(key);
            QCOMPARE(generator().bulkCount(), count);
            QCOMPARE(text(u"bulkCount"_s), QString::number(count));
        }
        generator().setTemplateTextScale(0.754);
        setFocus(u"mainTextSizeSlider"_s);
        QCOMPARE(text(u"mainTextSizeValue"_s), u"75%"_s);
        session().key(Qt::Key_Right);
        QCOMPARE(text(u"mainTextSizeValue"_s), u"80%"_s);
        generator().setTemplateSubtitleScale(1.15);
        QCOMPARE(text(u"subtitleSizeValue"_s), u"115%"_s);
        generator().setTemplateSubtitleScale(3);
        QCOMPARE(text(u"subtitleSizeValue"_s), u"300%"_s);

        // The wheel scrolls the panel, unless it is meant for the slider.
        QVERIFY(clickInPanel(u"bulkCountSlider"_s));
        const double count = generator().bulkCount();
        QQuickItem *const panel = session().find(u"generatorPanel"_s);
        const double top = panel->property("contentY").toDouble();
        const auto turn = [&](Qt::KeyboardModifiers modifiers) {
            const QPointF at = session().find(u"bulkCountSlider"_s)->mapToScene({100, 11});
            QWheelEvent event(at, session().window()->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(session().window(), &event);
            QTest::qWait(300);
        };
        turn(Qt::ControlModifier);
        QCOMPARE(generator().bulkCount(), count - 1);
        QCOMPARE(panel->property("contentY").toDouble(), top);
        turn(Qt::NoModifier);
        QCOMPARE(generator().bulkCount(), count - 1);
        QVERIFY(panel->property("contentY").toDouble() > top);
    }

    void editsContent()
    {
        openScreen(0);
        QCOMPARE(text(u"contentBadge"_s), u"Valid"_s);
        QVERIFY(clickInPanel(u"clearContent"_s));
        QVERIFY(!isShown(u"contentBadge"_s));
        for (const QString &button : {u"prettify"_s, u"fixNewlines"_s, u"clearContent"_s})
            QVERIFY(!isEnabled(button));
        QVERIFY(session().findText(slideContentPlaceholder.toString()));
        QVERIFY(clickInPanel(u"insertExample"_s));
        QCOMPARE(generator().textInput(), exampleSlideContent.toString());
        QCOMPARE(text(u"contentBadge"_s), u"Valid"_s);
        generator().setTextInput(u"[{\"a\":1}]"_s);
        QCOMPARE(text(u"contentBadge"_s), u"Invalid"_s);
        QVERIFY(clickInPanel(u"prettify"_s));
        QVERIFY(generator().textInput().count(u'\n') > 1);

        const QString broken = u"{\"slides\":[{\"main\":\"a\nb\"}]}"_s;
        {
            ConsoleCapture quiet;
            generator().setTextInput(broken);
        }
        QCOMPARE(text(u"contentBadge"_s), u"Invalid"_s);
        QVERIFY(clickInPanel(u"fixNewlines"_s));
        QCOMPARE(generator().textInput(), u"{\"slides\":[{\"main\":\"a\\nb\"}]}"_s);
        QCOMPARE(text(u"contentBadge"_s), u"Valid"_s);

        // What the buttons did can be undone in the editor.
        setFocus(u"contentEditor"_s);
        ConsoleCapture quiet;
        session().key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(generator().textInput(), broken);
        session().key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(text(u"contentBadge"_s), u"Valid"_s);
    }

    void typesContent()
    {
        openScreen(0);
        QQuickItem *const editor = session().find(u"contentEditorArea"_s);
        const QString stored = u"one\u00a0line\r\ntwo"_s;
        generator().setTextInput(stored);
        QCOMPARE(generator().textInput(), stored);
        setFocus(u"contentEditor"_s);
        session().key(Qt::Key_End, Qt::ControlModifier);
        session().key(Qt::Key_Return, Qt::ShiftModifier);
        session().type(u"3"_s);
        QCOMPARE(generator().textInput(), u"one\u00a0line\ntwo\n3"_s);

        // A change from outside leaves the caret at its place in the text.
        editor->setProperty("cursorPosition", 9);
        generator().setTextInput(u"1 line\ntwo\n3"_s);
        session().type(u"|"_s);
        QCOMPARE(generator().textInput(), u"1 line\n|two\n3"_s);

        // The first text is not an edit; the Tab key leaves the editor.
        for (int i = 0; i < 9; ++i)
            session().key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(generator().textInput(), defaultSlideContent.toString());
        session().key(Qt::Key_Tab);
        QVERIFY(session().find(u"openLibrary"_s)->hasActiveFocus());
    }

    void loadsFromTheLibrary()
    {
        openScreen(0);
        const QString content = u" {\"slides\": []}\n"_s;
        store().insert(std::make_unique<ContentTemplate>(u"Empty"_s, content));
        for (const bool loads : {false, true}) {
            QVERIFY(clickInPanel(u"openLibrary"_s));
            QTRY_VERIFY(isShown(u"contentLibraryDone"_s));
            QTest::qWait(200);
            QVERIFY(session().click(u"templateRow"_s));
            if (loads)
                QVERIFY(session().click(u"loadTemplate"_s));
            else
                session().key(Qt::Key_Escape);
            QTRY_VERIFY(!isShown(u"contentLibraryDone"_s));
            QCOMPARE(generator().textInput(), loads ? content : defaultSlideContent.toString());
        }
        QCOMPARE(property(u"contentEditorArea"_s, "text"), content);
    }
};

QTEST_MAIN(GeneratorPanelTest)
#include "tst_generator_panel.moc"
