#include "render/pixels/resampler.h"
#include "tests/table.h"

#include <cmath>
#include <numbers>
#include <random>

using namespace mosslantern;

namespace {

/// Rings as fine as pixels can show, with noise on them.
QImage rings(QSize size, QImage::Format format = QImage::Format_RGBX8888)
{
    std::mt19937 random(7);
    QImage image(size, QImage::Format_RGBA8888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const double ring = std::cos(std::numbers::pi / 2 / size.width() * (x * x + y * y));
            const auto level = [&] { return static_cast<int>(107 + 107 * ring + random() % 41); };
            image.setPixelColor(x, y, QColor(level(), level(), level(), x % 7 == 0 ? 0 : 255));
        }
    }
    return image.convertToFormat(format);
}

QImage scaled(const QImage &image, const QRectF &source, QSize target, int rowsAtATime)
{
    const Resampler resampler(image, source, target);
    QImage result(target, image.format());
    for (int y = 0; y < target.height(); y += rowsAtATime)
        resampler.makeRows(y, std::min(rowsAtATime, target.height() - y), result.scanLine(y));
    return result;
}

double lanczos(double x)
{
    const double angle = std::numbers::pi * x;
    return x == 0 ? 1 : 3 * std::sin(angle) * std::sin(angle / 3) / (angle * angle);
}

/// Keys's cubic with a slope of −1/2.
double bicubic(double x)
{
    const double a = -0.5;
    return x <= 1 ? (a + 2) * x * x * x - (a + 3) * x * x + 1 : a * (x * x * x - 5 * x * x + 8 * x - 4);
}

/// One channel of a picture, in rows.
using Plane = std::vector<std::vector<double>>;

/// Each row scaled as the filter is defined, without any rounding; and turned, so that twice is both ways.
Plane exactlyScaled(const Plane &plane, double start, double length, int target)
{
    const double step = length / target;
    const double stretch = std::max(1.0, step);
    const double radius = (step < 0.5 ? 2 : 3) * stretch;
    Plane turned(static_cast<size_t>(target), std::vector<double>(plane.size()));
    for (int i = 0; i < target; ++i) {
        const double centre = start + (i + 0.5) * step - 0.5;
        const auto end = static_cast<int>(std::ceil(centre + radius));
        double weights = 0;
        for (auto at = static_cast<int>(std::ceil(centre - radius)); at < end; ++at) {
            const double distance = std::abs(at - centre) / stretch;
            const double weight = step < 0.5 ? bicubic(distance) : lanczos(distance);
            weights += weight;
            for (size_t row = 0; row < plane.size(); ++row)
                turned[static_cast<size_t>(i)][row] +=
                    weight *
                    plane[row]
                         [static_cast<size_t>(std::clamp(at, 0, static_cast<int>(plane[row].size()) - 1))];
        }
        for (double &sum : turned[static_cast<size_t>(i)])
            sum /= weights;
    }
    return turned;
}

Plane exactlyScaled(const QImage &image, const QRectF &source, QSize target, int channel)
{
    Plane plane;
    for (int y = 0; y < image.height(); ++y) {
        plane.emplace_back();
        for (int x = 0; x < image.width(); ++x)
            plane.back().push_back(image.constScanLine(y)[4 * x + channel]);
    }
    const Plane turned = exactlyScaled(plane, source.x(), source.width(), target.width());
    return exactlyScaled(turned, source.y(), source.height(), target.height());
}

} // namespace

class TestResampler : public QObject
{
    Q_OBJECT

private slots:
    void sameSizeIsTheSamePicture()
    {
        const QImage image = rings({37, 23});
        QCOMPARE(scaled(image, image.rect(), image.size(), 5), image);
        QCOMPARE(scaled(image, QRectF(3, 4, 20, 10), {20, 10}, 10), image.copy(3, 4, 20, 10));
    }

    void isTheExactFilterRounded_data()
    {
        const auto row = table<QSize, QRectF, QSize>({"size", "source", "target"});
        row("same size, aside", {60, 50}, QRectF(0.5, 0.3, 59, 48), {59, 48});
        row("enlarged", {60, 50}, QRectF(1.3, 2.7, 57, 45.5), {70, 55});
        row("enlarged much", {60, 50}, QRectF(10, 10.2, 20, 15), {100, 75});
        row("reduced a little", {90, 120}, QRectF(0.7, 0, 89, 119.6), {80, 110});
        row("reduced", {120, 130}, QRectF(0, 3.3, 119.5, 125), {35, 33});
        row("reduced much", {240, 180}, QRectF(0, 0, 240, 180), {20, 10});
        row("beyond the edge", {20, 20}, QRectF(-9, -3, 40, 30), {30, 50});
        row("one pixel", {1, 1}, QRectF(0, 0, 1, 1), {3, 3});
        row("a row", {50, 1}, QRectF(0, 0.2, 50, 0.5), {25, 2});
    }

    void isTheExactFilterRounded()
    {
        QFETCH(QSize, size);
        QFETCH(QRectF, source);
        QFETCH(QSize, target);
        for (const auto format : {QImage::Format_RGBX8888, QImage::Format_RGBA8888_Premultiplied}) {
            const QImage image = rings(size, format);
            const QImage result = scaled(image, source, target, target.height());
            const Plane opacity = exactlyScaled(image, source, target, 3);
            double squares = 0;
            for (int channel = 0; channel < 4; ++channel) {
                const Plane exact = exactlyScaled(image, source, target, channel);
                for (int y = 0; y < target.height(); ++y) {
                    for (int x = 0; x < target.width(); ++x) {
                        const auto at = [&](const Plane &plane) {
                            return std::clamp(plane[static_cast<size_t>(y)][static_cast<size_t>(x)], 0.0,
                                              255.0);
                        };
                        const double mistake =
                            result.constScanLine(y)[4 * x + channel] - std::min(at(exact), at(opacity));
                        squares += mistake * mistake;
                        QVERIFY2(std::abs(mistake) < 1, qPrintable(QString::number(mistake)));
                    }
                }
            }
            // Rounding to whole levels alone leaves 58.9 dB.
            const double mean = squares / (4.0 * target.width() * target.height());
            QVERIFY2(10 * std::log10(255 * 255 / mean) > 55, qPrintable(QString::number(mean)));
        }
    }

    /// Weights that do not add up, and sums that are rounded one way, would darken or brighten it.
    void evenLevelsStayWhatTheyAre()
    {
        for (const int from : {50, 100, 141, 217, 299, 380}) {
            QImage image(from, from, QImage::Format_RGBX8888);
            for (int level = 0; level < 256; level += 5) {
                image.fill(QColor(level, 255 - level, 255));
                QImage expected(100, 100, image.format());
                expected.fill(image.pixelColor(0, 0));
                QCOMPARE(scaled(image, QRectF(0.3, 0.1, from - 0.5, from), {100, 100}, 100), expected);
            }
        }
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
        const QImage image = rings({80, 91});
        const QRectF source(1.3, 2.7, 77.1, 85.2);
        const QImage whole = scaled(image, source, target, target.height());
        QCOMPARE(scaled(image, source, target, 1), whole);
        QCOMPARE(scaled(image, source, target, 7), whole);
    }
};

QTEST_APPLESS_MAIN(TestResampler)
#include "tst_resampler.moc"
