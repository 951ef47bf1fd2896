#include "model/collection.h"
#include "tests/ui/window_test.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class CollectionsTest : public WindowTest
{
    Q_OBJECT

private:
    Collection *add(const QString &name) { return store().insert(std::make_unique<Collection>(name)); }

    void openCollections()
    {
        session().open();
        QVERIFY(session().click(u"sidebarRow1"_s));
    }

private slots:
    void createsUnderExactlyTheNameTyped_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("byKey");
        QTest::newRow("name") << u"Summer"_s << false;
        QTest::newRow("empty") << u""_s << false;
        QTest::newRow("blank, by Return") << u"  "_s << true;
    }
    void createsUnderExactlyTheNameTyped()
    {
        QFETCH(const QString, name);
        QFETCH(const bool, byKey);
        add(u"older"_s);
        openCollections();
        QVERIFY(session().findText(u"Select a Collection"_s));
        QVERIFY(session().click(u"newCollection"_s));
        QTRY_VERIFY(session().find(u"newCollectionName"_s)->hasActiveFocus());
        if (!name.isEmpty())
            session().type(name);
        if (byKey)
            session().key(Qt::Key_Return);
        else
            QVERIFY(session().click(u"createCollection"_s));

        QCOMPARE(store().all<Collection>().size(), 2u);
        QCOMPARE(store().all<Collection>().back()->name(), name);
        QTRY_VERIFY(!session().find(u"createCollection"_s));
        QCOMPARE(session().find(u"collectionCount"_s, 0)->property("text"), u"0"_s);
        QVERIFY(session().findText(u"Select a Collection"_s));
    }

    void createsOneHoweverOftenItIsAsked()
    {
        openCollections();
        QVERIFY(session().click(u"newCollection"_s));
        QVERIFY(session().doubleClick(u"createCollection"_s));
        QTRY_VERIFY(!session().find(u"createCollection"_s));
        QCOMPARE(store().all<Collection>().size(), 1u);

        // A key that opens the alert and is held does not accept it as well.
        session().find(u"newCollection"_s)->forceActiveFocus();
        session().hold(Qt::Key_Return);
        QTRY_VERIFY(session().find(u"newCollectionName"_s)->hasActiveFocus());
        session().hold(Qt::Key_Return);
        QTRY_VERIFY(!session().find(u"createCollection"_s));
        QCOMPARE(store().all<Collection>().size(), 2u);
    }

    void cancellingForgetsTheName()
    {
        openCollections();
        for (const bool byKey : {true, false}) {
            QVERIFY(session().click(u"newCollection"_s));
            QTRY_VERIFY(session().find(u"newCollectionName"_s)->hasActiveFocus());
            QCOMPARE(session().find(u"newCollectionName"_s)->property("text"), QString());
            session().type(u"x"_s);
            if (byKey)
                session().key(Qt::Key_Escape);
            else
                QVERIFY(session().click(u"cancelNewCollection"_s));
            QTRY_VERIFY(!session().find(u"newCollectionName"_s));
        }
        QVERIFY(store().all<Collection>().empty());
    }

    void addsAndRemovesAssets()
    {
        Collection *const other = add(u"other"_s);
        Asset *const a = session().library().addAsset(u"a"_s, other);
        Asset *const b = session().library().addAsset(u"b"_s);
        Asset *const c = session().library().addAsset(u"c"_s);
        Collection *const mine = add(u"mine"_s);
        openCollections();
        QVERIFY(session().click(u"collectionRow"_s, 0));
        QVERIFY(session().findText(u"No Assets"_s));

        QVERIFY(session().click(u"addAssets"_s));
        QTRY_VERIFY(session().find(u"confirmAddAssets"_s));
        QVERIFY(session().findText(u"Add Assets to mine"_s));
        QVERIFY(!session().find(u"confirmAddAssets"_s)->isEnabled());
        QTRY_COMPARE(session().count(u"pickCell"_s), 3);
        for (const int cell : {0, 1, 2, 1})
            QVERIFY(session().click(u"pickCell"_s, cell));
        session().key(Qt::Key_Return);
        QCOMPARE(mine->assets(), QList<Asset *>({a, c}));
        QCOMPARE(other->assetCount(), 0);
        QTRY_VERIFY(!session().find(u"confirmAddAssets"_s));
        QCOMPARE(session().count(u"memberCell"_s), 2);
        QCOMPARE(session().find(u"collectionCount"_s, 0)->property("text"), u"2"_s);

        // The ticks are forgotten, also by cancelling.
        for (int opening = 0; opening < 2; ++opening) {
            QVERIFY(session().click(u"addAssets"_s));
            QTRY_VERIFY(session().find(u"confirmAddAssets"_s));
            QVERIFY(!session().find(u"confirmAddAssets"_s)->isEnabled());
            QVERIFY(session().click(u"pickCell"_s));
            QVERIFY(session().click(u"cancelAddAssets"_s));
            QTRY_VERIFY(!session().find(u"confirmAddAssets"_s));
        }
        QCOMPARE(mine->assetCount(), 2);

        QVERIFY(session().click(u"addAssets"_s));
        QTRY_VERIFY(session().find(u"confirmAddAssets"_s));
        session().key(Qt::Key_Space);
        QVERIFY(session().click(u"confirmAddAssets"_s));
        QTRY_VERIFY(!session().find(u"confirmAddAssets"_s));
        QCOMPARE(mine->assetCount(), 3);
        QVERIFY(!session().find(u"addAssets"_s)->isEnabled());
        QVERIFY(session().click(u"memberCell"_s, 0, Qt::RightButton));
        QVERIFY(session().click(u"removeFromCollection"_s));
        QCOMPARE(mine->assets(), QList<Asset *>({b, c}));
        QVERIFY(session().find(u"addAssets"_s)->isEnabled());
        QCOMPARE(store().all<Asset>().size(), 3u);
    }

    void deletesASelectedCollectionAndKeepsItsAssets()
    {
        Collection *const first = add(u"first"_s);
        Asset *const asset = session().library().addAsset(u"a"_s, first);
        add(u"second"_s);
        openCollections();
        QVERIFY(session().click(u"collectionRow"_s, 0));
        session().key(Qt::Key_Down);
        QVERIFY(session().find(u"memberCell"_s));
        session().key(Qt::Key_Delete);
        QCOMPARE(store().all<Collection>().size(), 1u);
        QVERIFY(!asset->collection());
        QVERIFY(session().findText(u"Select a Collection"_s));

        QVERIFY(session().click(u"collectionRow"_s, 0, Qt::RightButton));
        QVERIFY(session().click(u"deleteCollection"_s));
        QVERIFY(store().all<Collection>().empty());
    }

    void worksByKeyboard()
    {
        Collection *const collection = add(u"0"_s);
        session().library().addAsset(u"a"_s, collection);
        session().library().addAsset(u"b"_s, collection);
        for (int i = 1; i < 40; ++i)
            add(QString::number(i));
        openCollections();
        session().key(Qt::Key_Tab);
        session().key(Qt::Key_Tab);
        session().key(Qt::Key_PageDown);
        QVERIFY(!session().findText(u"Select a Collection"_s));
        session().key(Qt::Key_Space, Qt::ControlModifier);
        QVERIFY(session().findText(u"Select a Collection"_s));
        session().hold(Qt::Key_Delete);
        QCOMPARE(store().all<Collection>().size(), 40u);
        session().key(Qt::Key_Home);
        session().hold(Qt::Key_Delete);
        QCOMPARE(store().all<Collection>().size(), 39u);
        QCOMPARE(store().all<Collection>().back()->name(), u"38"_s);
        session().key(Qt::Key_Home);
        session().key(Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(session().find(u"deleteCollection"_s));
        session().key(Qt::Key_Escape);
        session().key(Qt::Key_End);
        session().key(Qt::Key_Return);
        session().hold(Qt::Key_Delete);
        QCOMPARE(collection->assetCount(), 1);
    }

    void isMadeAfreshEachTime()
    {
        add(u"one"_s);
        openCollections();
        QVERIFY(session().click(u"collectionRow"_s));
        QVERIFY(!session().findText(u"Select a Collection"_s));
        QVERIFY(session().click(u"sidebarRow0"_s));
        QVERIFY(session().click(u"sidebarRow1"_s));
        QVERIFY(session().findText(u"Select a Collection"_s));
    }
};

QTEST_MAIN(CollectionsTest)
#include "tst_collections.moc"
