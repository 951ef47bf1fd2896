#include "model/rgba_color.h"
#include "tests/table.h"

#include <limits>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

RgbaColor bytes(int red, int green, int blue, int opacity = 255)
{
    return {red / 255.0, green / 255.0, blue / 255.0, opacity / 255.0};
}

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

} // namespace

class RgbaColorTest : public QObject
{
    Q_OBJECT

private slots:
    void decode_data()
    {
        const auto add = table<QString, RgbaColor>({"text", "color"});
        const auto row = [&](const QString &text, const RgbaColor &color) {
            add(qPrintable(u"“%1”"_s.arg(text)), text, color);
        };
        row(u"FF0000"_s, bytes(255, 0, 0));
        row(u" \n#ff0000\r\n\t"_s, bytes(255, 0, 0));
        row(u"#FF000080"_s, bytes(255, 0, 0, 128));
        row(u"#12#34#56"_s, bytes(0x12, 0x34, 0x56));
        row(u""_s, bytes(0, 0, 0));
        row(u"zzz"_s, bytes(0, 0, 0));
        row(u"zzzzzzzz"_s, bytes(0, 0, 0, 0));
        row(u"FFF"_s, bytes(0, 0x0F, 0xFF));
        row(u"FF00GG00"_s, bytes(0, 0, 0xFF, 0));
        row(u"0x123456"_s, bytes(0x00, 0x12, 0x34, 0x56)); // eight characters
        row(u"0X12345"_s, bytes(0x01, 0x23, 0x45));
        row(u"0x"_s, bytes(0, 0, 0));
        row(u"0xzz"_s, bytes(0, 0, 0));
        row(u"AB FF0000"_s, bytes(0, 0, 0xAB));
        row(u"123456789"_s, bytes(0x45, 0x67, 0x89));
        row(u"1122334455667788"_s, bytes(0x66, 0x77, 0x88));
        row(u"11223344556677889"_s, bytes(255, 255, 255)); // more than 64 bits
        row(u"FF0000é"_s, bytes(255, 0, 0));
        row(u"FF0000😀é"_s, bytes(0, 0xFF, 0, 0)); // eight characters in ten units
    }

    void decode()
    {
        QFETCH(QString, text);
        QTEST(colorFromHex(text), "color");
    }

    void encode_data()
    {
        const auto row = table<RgbaColor, QString>({"color", "text"});
        row("white", {1, 1, 1, 1}, u"FFFFFF"_s);
        row("black", {0, 0, 0, 1}, u"000000"_s);
        row("truncated, not rounded", {1, 1, 1, 0.5}, u"FFFFFF7F"_s);
        row("almost opaque", {0, 0, 0, 0.9999}, u"000000FE"_s);
        row("transparent", {0.1, 0.2, 0.3, 0}, u"19334C00"_s);
        row("wide gamut", {1.5, -0.2, infinite, 7}, u"FF00FF"_s);
        row("red is no number", {notANumber, 0, 0, 1}, u"FFFFFF"_s);
        row("opacity is no number", {0, 0, 0, notANumber}, u"FFFFFF"_s);
    }

    void encode()
    {
        QFETCH(RgbaColor, color);
        QTEST(hexFromColor(color), "text");
    }

    /// Truncation must not lose a step for any component on its way through the fractions.
    void everyComponentSurvives()
    {
        for (int value = 0; value < 256; ++value) {
            const QString opaque = u"%1%2%3"_s.arg(value, 2, 16, QLatin1Char('0'))
                                       .arg(255 - value, 2, 16, QLatin1Char('0'))
                                       .arg(value ^ 0x55, 2, 16, QLatin1Char('0'))
                                       .toUpper();
            QCOMPARE(hexFromColor(colorFromHex(opaque)), opaque);
            const QString translucent = opaque + u"%1"_s.arg(value, 2, 16, QLatin1Char('0')).toUpper();
            QCOMPARE(hexFromColor(colorFromHex(translucent)), value == 255 ? opaque : translucent);
        }
    }
};

QTEST_GUILESS_MAIN(RgbaColorTest)
#include "tst_rgba_color.moc"
