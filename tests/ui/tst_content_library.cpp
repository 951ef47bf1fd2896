#include "model/content_template.h"
#include "tests/ui/window_test.h"

#include <QtGui/QStyleHints>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class ContentLibraryTest : public WindowTest
{
    Q_OBJECT

private:
    ContentTemplate *add(const QString &name, const QString &content)
    {
        return store().insert(std::make_unique<ContentTemplate>(name, content));
    }

    void openLibrary(const QString &text = {})
    {
        session().open();
        session().view()->setProperty("contentText", text);
        QMetaObject::invokeMethod(session().view(), "showContentLibrary");
        QTRY_VERIFY(session().find(u"contentLibraryDone"_s));
        QTRY_COMPARE(session().find(u"createNewTemplate"_s)->opacity(), 1.0);
        QTest::qWait(150);
    }
    QString text() { return session().view()->property("contentText").toString(); }

private slots:
    void offersLittleWhileEmpty()
    {
        openLibrary();
        QVERIFY(session().findText(u"No Templates"_s));
        QVERIFY(session().findText(u"Select a Template"_s));
        QVERIFY(session().find(u"saveCurrentTemplate"_s));
        QVERIFY(!session().find(u"deleteTemplate"_s) && !session().find(u"loadTemplate"_s));
    }

    void savesTheCurrentText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("content");
        QTest::newRow("blanks go, line breaks stay")
            << u"  Intro  "_s << u" \t\n{} \n\u00a0"_s << u"Intro"_s << u"\n{} \n"_s;
        QTest::newRow("empty text") << u"x"_s << u""_s << u"x"_s << u""_s;
    }
    void savesTheCurrentText()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, text);
        QFETCH(const QString, name);
        QFETCH(const QString, content);
        add(u"older"_s, u"old"_s);
        openLibrary(text);
        QVERIFY(session().click(u"saveCurrentTemplate"_s));
        QTRY_VERIFY(session().find(u"templateName"_s) && session().find(u"templateName"_s)->hasActiveFocus());
        session().type(u" \t"_s);
        QVERIFY(!session().find(u"saveTemplate"_s)->isEnabled());
        session().key(Qt::Key_Backspace);
        session().key(Qt::Key_Backspace);
        session().type(typed);
        session().key(Qt::Key_Return);
        QTRY_VERIFY(!session().find(u"templateName"_s));

        const ContentTemplate *const saved = store().all<ContentTemplate>().back();
        QCOMPARE(saved->name(), name);
        QCOMPARE(saved->content(), content);
        QCOMPARE(session().find(u"templateTitle"_s)->property("text"), name);
        QVERIFY(session().find(u"templateRow"_s, 0)->property("isSelected").toBool());
    }

    void createsFromWhatIsTyped()
    {
        openLibrary(u"generator's"_s);
        QVERIFY(session().click(u"createNewTemplate"_s));
        QTRY_VERIFY(session().find(u"templateName"_s) && session().find(u"templateName"_s)->hasActiveFocus());
        session().type(u"N"_s);
        QVERIFY(!session().find(u"saveTemplate"_s)->isEnabled());
        session().key(Qt::Key_Tab);
        session().type(u"\t{}\u00A0{}"_s);
        session().key(Qt::Key_Tab);
        QVERIFY(!session().find(u"newTemplateContentArea"_s)->hasActiveFocus());
        QVERIFY(session().doubleClick(u"saveTemplate"_s));
        QCOMPARE(store().all<ContentTemplate>().size(), 1u);
        QCOMPARE(store().all<ContentTemplate>().front()->content(), u"{}\u00A0{}"_s);
        QTRY_VERIFY(!session().find(u"templateName"_s));

        // The save sheet keeps the content between uses, "Create New" empties it; Escape saves nothing.
        QVERIFY(session().click(u"createNewTemplate"_s));
        QTRY_VERIFY(session().find(u"newTemplateContentArea"_s));
        QCOMPARE(session().find(u"newTemplateContentArea"_s)->property("text"), QString());
        session().key(Qt::Key_Escape);
        QTRY_VERIFY(!session().find(u"templateName"_s));
        QVERIFY(session().find(u"contentLibraryDone"_s));
        QCOMPARE(store().all<ContentTemplate>().size(), 1u);
    }

    void endsHoveringBelowAPanel()
    {
        QGuiApplication::styleHints()->setUseHoverEffects(true);
        openLibrary();
        const QQuickItem *const button = session().find(u"createNewTemplate"_s);
        QTest::mouseMove(session().window(), QPoint(1, 1));
        QTest::mouseMove(session().window(), button->mapToScene(button->boundingRect().center()).toPoint());
        QTRY_VERIFY(button->property("hovered").toBool());
        QVERIFY(session().click(u"createNewTemplate"_s));
        QTRY_VERIFY(!button->property("hovered").toBool());
    }

    void loadsOrLeavesTheText()
    {
        const QString content = u"  {\"slides\": []}\n "_s;
        add(u"t"_s, content);
        openLibrary(u"before"_s);
        QVERIFY(session().click(u"templateRow"_s));
        QVERIFY(session().click(u"contentLibraryDone"_s));
        QTRY_VERIFY(!session().find(u"contentLibraryDone"_s));
        QCOMPARE(text(), u"before"_s);

        QMetaObject::invokeMethod(session().view(), "showContentLibrary");
        QTRY_VERIFY(session().find(u"templateRow"_s));
        QTest::qWait(150);
        QVERIFY(session().findText(u"Select a Template"_s));
        QVERIFY(session().click(u"templateRow"_s));
        QVERIFY(session().click(u"templateRow"_s, 0, Qt::LeftButton, Qt::ControlModifier));
        QVERIFY(session().findText(u"Select a Template"_s));
        QVERIFY(session().click(u"templateRow"_s));
        QVERIFY(session().click(u"loadTemplate"_s));
        QCOMPARE(text(), content);
        QTRY_VERIFY(!session().find(u"contentLibraryDone"_s));
    }

    void asksBeforeDeleting()
    {
        add(u"same"_s, u"1"_s);
        add(u"same"_s, u"2"_s);
        openLibrary();
        session().key(Qt::Key_Down);
        QCOMPARE(session().find(u"templateContent"_s)->property("text"), u"2"_s);
        session().key(Qt::Key_Delete);
        QTRY_VERIFY(session().findText(u"Are you sure you want to delete 'same'?"_s));
        QVERIFY(session().click(u"cancelDeleteTemplate"_s));
        QTRY_VERIFY(!session().find(u"cancelDeleteTemplate"_s));
        QCOMPARE(store().all<ContentTemplate>().size(), 2u);

        QVERIFY(session().click(u"deleteTemplate"_s));
        QTRY_VERIFY(session().find(u"confirmDeleteTemplate"_s));
        QTest::qWait(150);
        QVERIFY(session().click(u"confirmDeleteTemplate"_s));
        QCOMPARE(store().all<ContentTemplate>().size(), 1u);
        QCOMPARE(store().all<ContentTemplate>().front()->content(), u"1"_s);
        QVERIFY(session().findText(u"Select a Template"_s));
    }
};

QTEST_MAIN(ContentLibraryTest)
#include "tst_content_library.moc"
