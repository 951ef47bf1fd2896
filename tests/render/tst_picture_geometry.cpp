#include "render/picture/picture_fit.h"
#include "render/picture/picture_geometry.h"
#include "tests/table.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class PictureGeometryTest : public QObject
{
    Q_OBJECT

private slots:
    void coversCentred_data()
    {
        const auto row = table<QSizeF, QSizeF, QRectF>({"full", "cover", "region"});
        row("wide picture, tall canvas", {5640, 3172}, {2160, 3840}, QRectF(1927.875, 0, 1784.25, 3172));
        row("tall picture, square canvas", {100, 300}, {50, 50}, QRectF(0, 100, 100, 100));
        row("same shape", {90, 160}, {2160, 3840}, QRectF(0, 0, 90, 160));
        row("one pixel", {1, 1}, {2160, 3840}, QRectF(0.21875, 0, 0.5625, 1));
    }

    void coversCentred()
    {
        QFETCH(QSizeF, full);
        QFETCH(QSizeF, cover);
        QTEST(coverRegion(full, cover), "region");
    }

    void asksForPixelsAround()
    {
        QCOMPARE(pixelsShowing({40.5, 30, 30, 40.25}, 1, {200, 100}), QRect(28, 18, 55, 65));
        QCOMPARE(pixelsShowing({40.5, 30, 30, 40.25}, 0.5, {100, 50}), QRect(8, 3, 40, 45));
        QCOMPARE(pixelsShowing({0, 0, 100, 50}, 1, {100, 50}), QRect(0, 0, 100, 50));
        const PictureRequest quarter{.cover = {25, 10}};
        QCOMPARE(neededScale({100, 50}, quarter), 0.5);
        QCOMPARE(neededScale({100, 50}, {.cover = {60, 20}}), 1.0);
        QCOMPARE(neededRegion({100, 50}, quarter), QRectF(0, 0, 100, 50));
        QCOMPARE(neededScale({100, 50}, {.cover = {500, 20}}), 1.0);
        QCOMPARE(neededScale({100, 50}, {}), 1.0);
    }

    void boundsImages()
    {
        const PictureRequest slide{{2160, 3840}, true};
        for (const QSize size :
             {QSize(4032, 3024), QSize(8064, 6048), QSize(14'142, 14'142), QSize(9000, 9000),
              QSize(5000, 40'000), QSize(40'000, 5000), QSize(300, 200)}) {
            const PictureFit fit = fitOf(size, {}, slide);
            QVERIFY(fit.factor == 1 || neededScale(size, slide) / 2 * fit.factor <= 1);
            QVERIFY(fit.bytes() <= 140'000'000);
            QVERIFY(fit.bytes() <= mostImageBytes(size, slide) + 1'000'000);
        }
        QCOMPARE(fitOf({14'142, 14'142}, {}, slide).factor, 2);
        QCOMPARE(fitOf({9000, 9000}, {}, slide).factor, 2);
        QCOMPARE(fitOf({8064, 6048}, {}, slide).factor, 1);
    }

    void averagesBlocks()
    {
        QImage image(5, 3, QImage::Format_RGBA8888_Premultiplied);
        image.fill(Qt::transparent);
        image.setPixelColor(0, 0, Qt::red);
        image.setPixelColor(1, 1, Qt::blue);
        image.setPixelColor(4, 2, Qt::green);
        const QImage small = reduced(image, 2);
        QCOMPARE(small.size(), QSize(3, 2));
        const auto bytes = [&](int x, int y) {
            return QByteArray(reinterpret_cast<const char *>(small.constScanLine(y)) + x * 4, 4).toHex();
        };
        QCOMPARE(bytes(0, 0), "40004080"_ba);
        QCOMPARE(bytes(1, 0), "00000000"_ba);
        QCOMPARE(bytes(2, 1), "00ff00ff"_ba);
    }
};

QTEST_APPLESS_MAIN(PictureGeometryTest)
#include "tst_picture_geometry.moc"
