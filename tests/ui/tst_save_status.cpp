#include "model/collection.h"
#include "tests/ui/window_test.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class SaveStatusTest : public WindowTest
{
    Q_OBJECT

private slots:
    void saysWhatIsNotSaved()
    {
        session().open();
        QVERIFY(!session().find(u"saveError"_s));
        {
            const FullDisk full(1);
            store().insert(std::make_unique<Collection>(u"Kept"_s));
            QTRY_VERIFY(session().find(u"saveError"_s));
            QVERIFY(session()
                        .find(u"saveError"_s)
                        ->property("text")
                        .toString()
                        .startsWith(u"The library could not be saved: "_s));

            session().key(Qt::Key_Q, Qt::ControlModifier);
            QTRY_VERIFY(session().find(u"quitUnsaved"_s));
            QVERIFY(session().click(u"cancelQuit"_s));
            QTRY_VERIFY(!session().find(u"quitUnsaved"_s));
            QVERIFY(session().window()->isVisible());
        }
        store().all<Collection>()[0]->setName(u"Kept and changed"_s);
        QTRY_VERIFY(!session().find(u"saveError"_s));
        session().window()->close();
        QVERIFY(!session().window()->isVisible());
    }
};

QTEST_MAIN(SaveStatusTest)
#include "tst_save_status.moc"
