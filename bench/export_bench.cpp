// Exports slides from the photographs of a folder, and does the least that any program could do for such
// files (the floor: decode, crop, scale, Paeth, ISA-L level 2; no text), in one run, and prints both and
// their ratios. Usage: export_bench FOLDER [THREADS [ROUNDS]]

#include "render/export/png_encoder.h"
#include "render/export/slide_file.h"
#include "render/export/slide_renderer.h"
#include "render/memory.h"
#include "render/picture/picture_geometry.h"
#include "render/text/fonts.h"

#include <QtCore/QDirIterator>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QImageReader>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <thread>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

struct Figures
{
    double wall = 0; // seconds a slide
    double cpu = 0;  // seconds a slide
    double size = 0; // bytes a slide
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

template <typename Work>
Figures measure(size_t slides, const QString &folder, Work work)
{
    const auto start = std::chrono::steady_clock::now();
    const double cpu = cpuSeconds();
    work();
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    Figures figures{wall.count(), cpuSeconds() - cpu, 0};
    for (QDirIterator files(folder, QDir::Files); files.hasNext();)
        figures.size += static_cast<double>(files.nextFileInfo().size());
    const auto count = static_cast<double>(slides);
    return {figures.wall / count, figures.cpu / count, figures.size / count};
}

void floorSlide(const QString &picture, const QString &to)
{
    const QSize canvas(2160, 3840);
    QImageReader reader(picture);
    const QImage whole = reader.read();
    const QImage scaled = whole.copy(coverRegion(whole.size(), canvas).toAlignedRect())
                              .scaled(canvas, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_RGBA8888);
    const PngBand all = encodePngBand(scaled.constBits(), nullptr, canvas.width(), canvas.height(), true);
    if (!writeSlideFile(to, {canvas, {all}, {}}))
        std::fprintf(stderr, "could not write %s\n", qPrintable(to));
}

Figures measureFloor(const QStringList &pictures, int threads, const QString &folder)
{
    return measure(static_cast<size_t>(pictures.size()), folder, [&] {
        std::atomic<qsizetype> next = 0;
        std::vector<std::jthread> workers;
        for (int i = 0; i < threads; ++i) {
            workers.emplace_back([&] {
                for (qsizetype slide = next++; slide < pictures.size(); slide = next++)
                    floorSlide(pictures[slide], folder + u"/%1.png"_s.arg(slide));
            });
        }
    });
}

Figures measureOurs(const QStringList &pictures, TextStyle style, int threads, const QString &folder)
{
    std::vector<SlideJob> jobs;
    for (const QString &picture : pictures) {
        SlideValues values;
        values.text = u"Three habits that\nchanged my life ✨"_s;
        values.subtitle = u"swipe to see them all"_s;
        values.style.textStyle = style;
        values.style.setBoxColor(style == TextStyle::boxed ? RgbaColor{1, 1, 1, 1} : RgbaColor{0, 0, 0, 1});
        jobs.push_back({values, exportCanvas(AspectRatio::tiktok), picture});
    }
    SlideRenderer renderer(threads);
    // Slideshows have five slides, and an export waits for each slideshow.
    constexpr size_t slideshow = 5;
    return measure(jobs.size(), folder, [&] {
        for (size_t first = 0; first < jobs.size(); first += slideshow) {
            const std::span part = std::span(jobs).subspan(first, std::min(slideshow, jobs.size() - first));
            renderer.render(part, [&](size_t index, const EncodedSlide &slide) {
                return writeSlideFile(folder + u"/%1.png"_s.arg(first + index), slide).has_value();
            });
        }
    });
}

void print(const char *name, const Figures &figures, const Figures &floor)
{
    std::printf("%-8s  %.3f s wall (%.2f x)  %.3f s CPU (%.2f x)  %.2f MB (%.3f x)\n", name, figures.wall,
                figures.wall / floor.wall, figures.cpu, figures.cpu / floor.cpu, figures.size / 1e6,
                figures.size / floor.size);
}

} // namespace

int main(int argc, char **argv)
{
    returnLargeBlocks();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc < 2 || !registerFonts()) {
        std::fprintf(stderr, "usage: export_bench FOLDER [THREADS [ROUNDS]]\n");
        return 2;
    }
    QImageReader::setAllocationLimit(1024);
    const int threads = argc > 2 ? std::atoi(argv[2]) : QThread::idealThreadCount();
    const int rounds = argc > 3 ? std::atoi(argv[3]) : 1;
    QStringList pictures;
    for (QDirIterator files(QString::fromLocal8Bit(argv[1]), {u"*.jpg"_s}, QDir::Files,
                            QDirIterator::Subdirectories);
         files.hasNext();)
        pictures.append(files.next());
    pictures.sort();
    while (pictures.size() % 5 != 0)
        pictures.append(pictures.first());

    std::printf("%lld slides of 2160 x 3840, %d threads, seconds and megabytes a slide\n",
                static_cast<long long>(pictures.size()), threads);
    for (int round = 0; round < rounds; ++round) {
        const QTemporaryDir folder;
        std::array<Figures, allTextStyles.size()> ours;
        for (size_t i = 0; i < ours.size(); ++i)
            ours[i] = measureOurs(pictures, allTextStyles[i], threads, folder.path());
        if (round == 0)
            std::printf("peak memory of the exports: %.0f MB\n", peakMegabytes());
        const Figures floor = measureFloor(pictures, threads, folder.path());
        print("floor", floor, floor);
        for (size_t i = 0; i < ours.size(); ++i)
            print(qPrintable(rawText(allTextStyles[i])), ours[i], floor);
    }
    return 0;
}
