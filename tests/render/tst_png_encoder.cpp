#include "render/export/png_encoder.h"
#include "tests/table.h"

#include <QtCore/QBuffer>
#include <QtGui/QColorSpace>
#include <QtGui/QImage>

#include <random>

using namespace mosslantern;

namespace {

QByteArray encoded(const QImage &image, int rowsPerBand)
{
    QList<PngBand> bands;
    for (int y = 0; y < image.height(); y += rowsPerBand) {
        const int rows = std::min(rowsPerBand, image.height() - y);
        bands.append(encodePngBand(image.constScanLine(y), y > 0 ? image.constScanLine(y - 1) : nullptr,
                                   image.width(), rows, y + rows == image.height()));
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writePng(buffer, image.size(), bands) ? buffer.data() : QByteArray();
}

enum class Content { flat, gradient, noise };

QImage sample(QSize size, Content content)
{
    std::mt19937 random(3);
    QImage image(size, QImage::Format_RGBA8888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < 4 * size.width(); ++x) {
            const auto value = content == Content::flat       ? 200
                               : content == Content::gradient ? static_cast<int>(x * 3 + y * 5)
                                                              : static_cast<int>(random());
            image.scanLine(y)[x] = static_cast<uint8_t>(value);
        }
    }
    return image;
}

} // namespace

class TestPngEncoder : public QObject
{
    Q_OBJECT

private slots:
    void readsBackExactly_data()
    {
        const auto row = table<QSize, int>({"size", "rowsPerBand"});
        row("one pixel", {1, 1}, 1);
        row("one band", {67, 41}, 41);
        row("bands and a rest", {67, 41}, 8);
        row("a band a row", {5, 9}, 1);
        row("wide", {3001, 70}, 64);
    }

    void readsBackExactly()
    {
        QFETCH(QSize, size);
        QFETCH(int, rowsPerBand);
        for (const Content content : {Content::flat, Content::gradient, Content::noise}) {
            const QImage image = sample(size, content);
            const QByteArray png = encoded(image, rowsPerBand);
            const qsizetype marker = png.indexOf("sRGB");
            QVERIFY(marker > 0 && marker < png.indexOf("IDAT"));
            QImage back;
            QVERIFY(back.loadFromData(png, "PNG"));
            QCOMPARE(back.colorSpace(), QColorSpace(QColorSpace::SRgb));
            back.convertTo(QImage::Format_RGBA8888);
            back.setColorSpace({});
            QCOMPARE(back, image);
        }
    }

    void aFailingDeviceIsReported()
    {
        QBuffer readOnly;
        readOnly.open(QIODevice::ReadOnly);
        const QImage image = sample({4, 4}, Content::flat);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("ReadOnly device")));
        QVERIFY(!writePng(readOnly, image.size(), {encodePngBand(image.constBits(), nullptr, 4, 4, true)}));
    }
};

QTEST_APPLESS_MAIN(TestPngEncoder)
#include "tst_png_encoder.moc"
