#include "drawn.h"
#include "render/text/fonts.h"
#include "tests/table.h"

#include <cstring>

using namespace mosslantern;
using namespace mosslantern::test;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(mosslantern::Background)

namespace {

Background pictureBackground(QImage::Format format)
{
    QImage picture(300, 200, format);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y,
                                  QColor(x % 256, y, 90, format == QImage::Format_RGBX8888 ? 255 : x % 256));
    }
    return PictureFill{picture, QRectF(50.5, 0, 199, 200)};
}

} // namespace

class TestSlideComposition : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(registerFonts()); }

    void rowsDoNotDependOnTheirGrouping_data()
    {
        const auto row = table<Background, double>({"background", "pixelRatio"});
        row("opaque picture", pictureBackground(QImage::Format_RGBX8888), 2.0);
        row("transparent picture", pictureBackground(QImage::Format_RGBA8888_Premultiplied), 2.0);
        row("no picture", Background(noPictureColor), 2.0);
        row("missing picture", Background(missingPictureColor), 2.0);
        row("missing picture, wide blur", Background(missingPictureColor), 10.0);
    }

    void rowsDoNotDependOnTheirGrouping()
    {
        QFETCH(Background, background);
        QFETCH(double, pixelRatio);
        const Canvas canvas{{240 / pixelRatio, 300 / pixelRatio}, pixelRatio};
        SlideValues values;
        values.text = u"Some\ntext 😀"_s;
        values.subtitle = u"and more"_s;
        const SlideComposition slide(canvas, background, drawTexts(values, canvas));
        const QImage whole = slide.image();
        for (const int rows : {1, 7, 64}) {
            for (int y = 0; y < whole.height(); y += rows) {
                const int count = std::min(rows, whole.height() - y);
                QImage part(whole.width(), count, whole.format());
                slide.paintRows(y, count, part.bits());
                QCOMPARE(part, whole.copy(0, y, whole.width(), count));
            }
        }
    }

    void cornersAreRoundAndHoldTheShadow()
    {
        const QImage image = drawn({}, {{200, 100}, 2}, Qt::white);
        const QRect all = image.rect();
        for (const QPoint corner : {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()}) {
            // Outside the curve lies nothing but the canvas's own shadow.
            const QColor outside = image.pixelColor(corner);
            QCOMPARE(outside.red(), 0);
            QVERIFY(outside.alpha() < 84);
            // Straight edges reach the border; a radius of 8 points bends 1.53 times as far.
            const int right = corner.x() == 0 ? 1 : -1;
            const int down = corner.y() == 0 ? 1 : -1;
            QCOMPARE(image.pixelColor(corner + QPoint(right * 25, 0)), QColor(Qt::white));
            QCOMPARE(image.pixelColor(corner + QPoint(0, down * 25)), QColor(Qt::white));
            QVERIFY(image.pixelColor(corner + QPoint(right * 8, 0)).alpha() < 255);
            QCOMPARE(image.pixelColor(corner + QPoint(right * 6, down * 6)), QColor(Qt::white));
        }
        // A pixel and a half outside the curve, a Gaussian of two pixels leaves about a fifth of the 33 %.
        int darkest = 0;
        for (int i = 0; i < 8; ++i) {
            const QColor color = image.pixelColor(i, i);
            if (color.red() == 0)
                darkest = std::max(darkest, color.alpha());
        }
        QVERIFY2(darkest > 10 && darkest < 25, qPrintable(QString::number(darkest)));
    }

    void backgroundsWithoutPicture()
    {
        const Canvas canvas{{100, 100}, 2};
        const QImage none = SlideComposition(canvas, noPictureColor, {}).image();
        QCOMPARE(none.pixelColor(100, 100), QColor(142, 142, 147));
        // Gray at 20 %, over its own shadow: 0.2 + 0.8 · 0.33 · 0.2 of opacity.
        const QImage missing = SlideComposition(canvas, missingPictureColor, {}).image();
        QVERIFY(std::abs(missing.pixelColor(100, 100).alpha() - 64.5) <= 1);
    }

    void pictureFillsTheCanvas()
    {
        // The middle of a wide picture, in proportion: the stripes left and right of it are cut off.
        QImage picture(400, 100, QImage::Format_RGBX8888);
        picture.fill(Qt::red);
        for (int y = 0; y < 100; ++y) {
            for (int x = 175; x < 225; ++x)
                picture.setPixelColor(x, y, x < 200 ? Qt::blue : Qt::green);
        }
        const Canvas canvas{{100, 200}, 1};
        const QImage image =
            SlideComposition(canvas, PictureFill{picture, QRectF(175, 0, 50, 100)}, {}).image();
        QCOMPARE(image.pixelColor(2, 100), QColor(Qt::blue));
        QVERIFY(image.pixelColor(97, 100).green() > 250);
        QCOMPARE(image.pixelColor(30, 2), QColor(Qt::blue));
    }

    void fittedCanvasKeepsItsShape()
    {
        QCOMPARE(fittedCanvas(AspectRatio::tiktok, {10, 10, 900, 160}), QRectF(415, 10, 90, 160));
        QCOMPARE(fittedCanvas(AspectRatio::instagram, {0, 0, 80, 900}), QRectF(0, 400, 80, 100));
    }
};

QTEST_MAIN(TestSlideComposition)
#include "tst_slide_composition.moc"
