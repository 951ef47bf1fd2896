#include "render/pixels/alpha_plane.h"
#include "tests/table.h"

#include <cmath>
#include <numeric>

using namespace mosslantern;

namespace {

/// The convolution with an exact Gaussian, in floating point.
std::vector<double> exactBlur(const AlphaPlane &plane, double sigma)
{
    const int width = plane.width();
    const int height = plane.height();
    const int reach = static_cast<int>(std::ceil(5 * sigma));
    std::vector<double> kernel;
    for (int i = -reach; i <= reach; ++i)
        kernel.push_back(std::exp(-i * i / (2 * sigma * sigma)));
    const double sum = std::accumulate(kernel.begin(), kernel.end(), 0.0);
    const auto pass = [&](const std::vector<double> &in, bool across) {
        std::vector<double> out(in.size());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                for (int i = -reach; i <= reach; ++i) {
                    const int column = across ? x + i : x;
                    const int row = across ? y : y + i;
                    if (column >= 0 && column < width && row >= 0 && row < height)
                        out[static_cast<size_t>(y * width + x)] +=
                            kernel[static_cast<size_t>(i + reach)] / sum *
                            in[static_cast<size_t>(row * width + column)];
                }
            }
        }
        return out;
    };
    return pass(pass({plane.values().begin(), plane.values().end()}, true), false);
}

AlphaPlane someShapes(QSize size)
{
    AlphaPlane plane(size);
    for (int y = size.height() / 3; y < 2 * size.height() / 3; ++y) {
        for (int x = size.width() / 4; x < size.width() / 2; ++x)
            plane.row(y)[x] = 255;
        plane.row(y)[3 * size.width() / 4] = 200; // a hairline
    }
    return plane;
}

} // namespace

class TestAlphaPlane : public QObject
{
    Q_OBJECT

private slots:
    void blurIsGaussian_data()
    {
        const auto row = table<double, QSize>({"sigma", "size"});
        row("kernel", 1.0, QSize(60, 40));
        row("wide kernel", 3.9, QSize(100, 60));
        row("halved once", 4.0, QSize(101, 61));
        row("halved twice", 10.0, QSize(203, 149));
        row("halved thrice", 30.0, QSize(300, 301));
        row("wider than the plane", 30.0, QSize(9, 7));
    }

    void blurIsGaussian()
    {
        QFETCH(double, sigma);
        QFETCH(QSize, size);
        const AlphaPlane plane = someShapes(size);
        const AlphaPlane result = blurred(plane, sigma);
        const std::vector<double> exact = exactBlur(plane, sigma);
        // At the plane's edge the halved blur takes what lies outside for what lies beside it.
        const bool spreadsOut = sigma > size.width() / 4.0;
        double worst = 0;
        for (size_t i = 0; i < exact.size(); ++i)
            worst = std::max(worst, std::abs(exact[i] - result.values()[i]));
        QVERIFY2(worst < (spreadsOut ? 4 : 2), qPrintable(QStringLiteral("off by %1 levels").arg(worst)));
    }

    void blurStaysWithinItsReach()
    {
        for (const double sigma : {0.5, 2.0, 5.0, 12.0}) {
            const int reach = blurReach(sigma);
            AlphaPlane dot(QSize(2 * reach + 21, 2 * reach + 21));
            dot.row(reach + 10)[reach + 10] = 255;
            const AlphaPlane result = blurred(dot, sigma);
            for (int i = 0; i < result.width(); ++i) {
                const bool inside = std::abs(i - (reach + 10)) <= reach;
                QVERIFY(inside || (result.row(reach + 10)[i] == 0 && result.row(i)[reach + 10] == 0));
            }
        }
    }

    void shiftMoves_data()
    {
        // "row" is the middle one of 5 × 3 pixels with a single 200 at (2, 1).
        const auto row = table<QPointF, QList<int>>({"offset", "row"});
        row("not at all", {0, 0}, {0, 0, 200, 0, 0});
        row("right", {2, 0}, {0, 0, 0, 0, 200});
        row("left", {-1, 0}, {0, 200, 0, 0, 0});
        row("out of sight", {9, 0}, {0, 0, 0, 0, 0});
        row("half a pixel right", {0.5, 0}, {0, 0, 100, 100, 0});
        row("half a pixel left", {-0.5, 0}, {0, 100, 100, 0, 0});
        row("a quarter down", {0, 0.25}, {0, 0, 150, 0, 0});
        row("a quarter up", {0, -0.25}, {0, 0, 150, 0, 0});
    }

    void shiftMoves()
    {
        QFETCH(QPointF, offset);
        QFETCH(QList<int>, row);
        AlphaPlane plane(QSize(5, 3));
        plane.row(1)[2] = 200;
        const AlphaPlane result = shifted(plane, offset);
        const QList<int> moved(result.row(1), result.row(1) + 5);
        QCOMPARE(moved, row);
    }
};

QTEST_APPLESS_MAIN(TestAlphaPlane)
#include "tst_alpha_plane.moc"
