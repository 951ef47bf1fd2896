#include "ui/common/painted_item.h"

#include <QtQuick/QQuickWindow>
#include <QtTest/QtTest>

using namespace mosslantern;

namespace {

class Picture : public PaintedItem
{
public:
    using PaintedItem::PaintedItem;

    void paint(QPainter *) override { ++timesPainted; }

    int timesPainted = 0;
};

} // namespace

class PaintedItemTest : public QObject
{
    Q_OBJECT

private slots:
    void isPaintedOnlyWhileVisible()
    {
        QQuickWindow window;
        window.resize(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QQuickItem parent(window.contentItem());
        parent.setVisible(false);
        Picture picture(&parent);
        picture.setSize({40, 40});
        const auto timesPainted = [&] {
            window.grabWindow();
            return picture.timesPainted;
        };
        QCOMPARE(timesPainted(), 0);
        parent.setVisible(true);
        QCOMPARE(timesPainted(), 1);

        // What did not change meanwhile is still there.
        parent.setVisible(false);
        QCOMPARE(timesPainted(), 1);
        parent.setVisible(true);
        QCOMPARE(timesPainted(), 1);

        parent.setVisible(false);
        picture.update();
        QCOMPARE(timesPainted(), 1);
        picture.setSize({50, 50});
        QCOMPARE(timesPainted(), 1);
        parent.setVisible(true);
        QCOMPARE(timesPainted(), 2);
    }
};

QTEST_MAIN(PaintedItemTest)
#include "tst_painted_item.moc"
