#include "render/pixels/resampler.h"
#include "tests/table.h"

#include <random>

using namespace mosslantern;

namespace {

QImage noise(QSize size)
{
    std::mt19937 random(7);
    QImage image(size, QImage::Format_RGBX8888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < 4 * size.width(); ++x)
            image.scanLine(y)[x] = static_cast<uint8_t>(random());
    }
    return image;
}

QImage scaled(const QImage &image, const QRectF &source, QSize target, int rowsAtATime)
{
    const Resampler resampler(image, source, target);
    QImage result(target, QImage::Format_RGBX8888);
    for (int y = 0; y < target.height(); y += rowsAtATime)
        resampler.makeRows(y, std::min(rowsAtATime, target.height() - y), result.scanLine(y));
    return result;
}

/// The green values of a row.
QList<int> greens(const QImage &image, int y)
{
    QList<int> values;
    for (int x = 0; x < image.width(); ++x)
        values.append(image.constScanLine(y)[4 * x + 1]);
    return values;
}

QImage greenRow(const QList<int> &values)
{
    QImage image(static_cast<int>(values.size()), 1, QImage::Format_RGBX8888);
    for (int x = 0; x < image.width(); ++x)
        image.setPixelColor(x, 0, QColor(9, values[x], 90));
    return image;
}

} // namespace

class TestResampler : public QObject
{
    Q_OBJECT

private slots:
    void sameSizeIsTheSamePicture()
    {
        const QImage image = noise({37, 23});
        QCOMPARE(scaled(image, image.rect(), image.size(), 5), image);
        QCOMPARE(scaled(image, QRectF(3, 4, 20, 10), {20, 10}, 10), image.copy(3, 4, 20, 10));
    }

    void rows_data()
    {
        const auto row = table<QList<int>, QRectF, QList<int>>({"from", "source", "to"});
        row("doubled", {0, 100}, QRectF(0, 0, 2, 1), {0, 25, 75, 100});
        row("half a pixel aside", {0, 100, 200}, QRectF(0.5, 0, 2, 1), {50, 150});
        row("halved", {0, 80, 160, 240, 240, 240}, QRectF(0, 0, 6, 1), {50, 190, 240});
        row("beyond the edge", {10, 20}, QRectF(-1, 0, 4, 1), {10, 10, 20, 20});
        row("one pixel", {77}, QRectF(0, 0, 1, 1), {77, 77, 77});
    }

    void rows()
    {
        QFETCH(QList<int>, from);
        QFETCH(QRectF, source);
        QFETCH(QList<int>, to);
        const QImage result = scaled(greenRow(from), source, {static_cast<int>(to.size()), 1}, 1);
        const QList<int> values = greens(result, 0);
        for (qsizetype i = 0; i < to.size(); ++i)
            QVERIFY2(std::abs(values[i] - to[i]) <= 1,
                     qPrintable(QStringLiteral("%1: %2").arg(i).arg(values[i])));
        // The same, turned by a quarter: both directions follow one rule.
        const QImage upright = greenRow(from).transformed(QTransform().rotate(90));
        const QImage column =
            scaled(upright, QRectF(0, source.x(), 1, source.width()), {1, static_cast<int>(to.size())}, 1);
        for (qsizetype i = 0; i < to.size(); ++i)
            QVERIFY(std::abs(greens(column, static_cast<int>(i))[0] - to[i]) <= 1);
    }

    void rowsDoNotDependOnTheirGrouping_data()
    {
        const auto row = table<QSize>({"target"});
        row("enlarged", QSize(211, 307));
        row("reduced", QSize(31, 17));
        row("a little reduced", QSize(79, 90));
    }

    void rowsDoNotDependOnTheirGrouping()
    {
        QFETCH(QSize, target);
        const QImage image = noise({80, 91});
        const QRectF source(1.3, 2.7, 77.1, 85.2);
        const QImage whole = scaled(image, source, target, target.height());
        QCOMPARE(scaled(image, source, target, 1), whole);
        QCOMPARE(scaled(image, source, target, 7), whole);
    }
};

QTEST_APPLESS_MAIN(TestResampler)
#include "tst_resampler.moc"
