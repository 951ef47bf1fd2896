#include "render/text/style_look.h"

#include <QtTest/QtTest>

#include <limits>

using namespace mosslantern;

class TestStyleLook : public QObject
{
    Q_OBJECT

private slots:
    void fontSizes_data()
    {
        QTest::addColumn<double>("canvasWidth");
        QTest::addColumn<QList<double>>("sizes"); // in the order of the styles
        QTest::newRow("350") << 350.0 << QList<double>{32, 28.8, 35.2, 32};
        QTest::newRow("export") << 1080.0 << QList<double>{96, 86.4, 105.6, 96};
        QTest::newRow("largest") << 1050.0 << QList<double>{96, 86.4, 105.6, 96};
        QTest::newRow("smallest") << 30.0 << QList<double>{3.2, 2.88, 3.52, 3.2};
        QTest::newRow("not a number")
            << std::numeric_limits<double>::quiet_NaN() << QList<double>{96, 86.4, 105.6, 96};
    }

    void fontSizes()
    {
        QFETCH(double, canvasWidth);
        QFETCH(QList<double>, sizes);
        for (size_t i = 0; i < allTextStyles.size(); ++i)
            QCOMPARE(fontSize(allTextStyles[i], canvasWidth), sizes[static_cast<qsizetype>(i)]);
    }

    void contrast_data()
    {
        constexpr RgbaColor black{0, 0, 0, 1};
        constexpr RgbaColor white{1, 1, 1, 1};
        QTest::addColumn<RgbaColor>("box");
        QTest::addColumn<RgbaColor>("text");
        QTest::newRow("white") << white << black;
        QTest::newRow("black") << black << white;
        QTest::newRow("exactly half") << RgbaColor{0.25, 0.5, 0.75, 1} << white;
        QTest::newRow("just above half") << RgbaColor{0.5, 0.5, 0.501, 1} << black;
        QTest::newRow("pure green is dark") << RgbaColor{0, 1, 0, 1} << white;
        QTest::newRow("clear black") << RgbaColor{0, 0, 0, 0} << white;
        QTest::newRow("no device colour")
            << RgbaColor{std::numeric_limits<double>::quiet_NaN(), 0, 0, 1} << black;
    }

    void contrast()
    {
        QFETCH(RgbaColor, box);
        QFETCH(RgbaColor, text);
        QCOMPARE(contrastColor(box), text);
    }
};

QTEST_APPLESS_MAIN(TestStyleLook)
#include "tst_style_look.moc"
