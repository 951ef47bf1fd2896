#include "render/text/style_look.h"
#include "tests/table.h"

#include <limits>

using namespace mosslantern;

class TestStyleLook : public QObject
{
    Q_OBJECT

private slots:
    void fontSizes_data()
    {
        const auto row = table<double, QList<double>>({"canvasWidth", "sizes"}); // in the order of the styles
        row("350", 350.0, QList<double>{32, 28.8, 35.2, 32});
        row("export", 1080.0, QList<double>{96, 86.4, 105.6, 96});
        row("largest", 1050.0, QList<double>{96, 86.4, 105.6, 96});
        row("smallest", 30.0, QList<double>{3.2, 2.88, 3.52, 3.2});
        row("not a number", std::numeric_limits<double>::quiet_NaN(), QList<double>{96, 86.4, 105.6, 96});
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
        const auto row = table<RgbaColor, RgbaColor>({"box", "text"});
        row("white", white, black);
        row("black", black, white);
        row("exactly half", RgbaColor{0.25, 0.5, 0.75, 1}, white);
        row("just above half", RgbaColor{0.5, 0.5, 0.501, 1}, black);
        row("pure green is dark", RgbaColor{0, 1, 0, 1}, white);
        row("clear black", RgbaColor{0, 0, 0, 0}, white);
        row("no device colour", RgbaColor{std::numeric_limits<double>::quiet_NaN(), 0, 0, 1}, black);
    }

    void contrast()
    {
        QFETCH(RgbaColor, box);
        QTEST(contrastColor(box), "text");
    }
};

QTEST_APPLESS_MAIN(TestStyleLook)
#include "tst_style_look.moc"
