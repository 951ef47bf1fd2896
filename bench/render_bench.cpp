// The stages that one exported slide of 2160 × 3840 pixels passes through, each by itself.

#include "render/background.h"
#include "render/export/png_encoder.h"
#include "render/export/png_filter.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"
#include "render/slide_composition.h"
#include "render/text/fonts.h"

#include <QtGui/QGuiApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr int bandRows = 64;

const Canvas &canvas()
{
    static const Canvas shape = exportCanvas(AspectRatio::tiktok);
    return shape;
}

/// A photograph of 18 megapixels, unless MOSSLANTERN_PHOTOGRAPH names another.
QString photograph()
{
    const QString named = qEnvironmentVariable("MOSSLANTERN_PHOTOGRAPH");
    return named.isEmpty() ? u"/usr/share/backgrounds/mate/abstract/Elephants_5640x3172.jpg"_s : named;
}

SlideValues values(TextStyle style)
{
    SlideValues slide;
    slide.text = u"Three habits that\nchanged my life ✨"_s;
    slide.subtitle = u"swipe to see them all"_s;
    slide.style.textStyle = style;
    slide.style.setBoxColor(style == TextStyle::boxed ? RgbaColor{1, 1, 1, 1} : RgbaColor{0, 0, 0, 1});
    return slide;
}

const QImage &slide()
{
    static const QImage image =
        SlideComposition(canvas(), loadBackground(photograph(), canvas()), {}).image();
    return image;
}

void decode(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(loadBackground(photograph(), canvas()));
}
BENCHMARK(decode)->Unit(benchmark::kMillisecond);

void scale(benchmark::State &state)
{
    const Background background = loadBackground(photograph(), canvas());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(SlideComposition(canvas(), background, {}).image());
}
BENCHMARK(scale)->Unit(benchmark::kMillisecond);

void texts(benchmark::State &state)
{
    const SlideValues slideValues = values(static_cast<TextStyle>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(drawTexts(slideValues, canvas()));
    state.SetLabel(rawText(slideValues.style.textStyle).toStdString());
}
BENCHMARK(texts)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

void shadowsOfOneLine(benchmark::State &state)
{
    const auto style = static_cast<TextStyle>(state.range(0));
    const StyleLook look = styleLook(style, {0, 0, 0, 1}, false);
    const QImage line = drawTexts(values(style), canvas()).front().image;
    const AlphaPlane plane = alphaPlane(line);
    for ([[maybe_unused]] auto _ : state) {
        QImage image = line.copy();
        castShadows(image, plane, look.shadows, canvas().pixelRatio);
        benchmark::DoNotOptimize(image);
    }
    state.SetLabel(rawText(style).toStdString());
}
BENCHMARK(shadowsOfOneLine)->Arg(0)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

void filter(benchmark::State &state)
{
    const QImage &image = slide();
    const int bytes = 4 * image.width();
    std::vector<uint8_t> row(static_cast<size_t>(bytes));
    for ([[maybe_unused]] auto _ : state) {
        for (int y = 1; y < image.height(); ++y) {
            paethFilter(image.constScanLine(y), image.constScanLine(y - 1), bytes, row.data());
            benchmark::DoNotOptimize(row.data());
        }
    }
}
BENCHMARK(filter)->Unit(benchmark::kMillisecond);

void filterAndDeflate(benchmark::State &state)
{
    const QImage &image = slide();
    qsizetype size = 0;
    for ([[maybe_unused]] auto _ : state) {
        size = 0;
        for (int y = 0; y < image.height(); y += bandRows) {
            size += encodePngBand(image.constScanLine(y), y > 0 ? image.constScanLine(y - 1) : nullptr,
                                  image.width(), bandRows, y + bandRows == image.height())
                        .deflated.size();
        }
    }
    state.SetLabel(std::to_string(size / 1000) + " kB");
}
BENCHMARK(filterAndDeflate)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication application(argc, argv);
    if (!registerFonts())
        return EXIT_FAILURE;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
