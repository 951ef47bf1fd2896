// Decoding of pictures: for export, beside what QImageReader takes for the same, and for thumbnails.

#include "render/picture/picture_loader.h"

#include <QtCore/QBuffer>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>

#include <benchmark/benchmark.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize exportSize(2160, 3840);
constexpr QSize thumbnailSize(300, 300);
constexpr QSize cameraSize(6000, 4000);

QStringList photographs()
{
    QStringList paths;
    QDirIterator files(u"/usr/share/backgrounds/mate"_s, {u"*.jpg"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        paths += files.next();
    paths.sort();
    return paths;
}

/// A photograph as a camera of 24 megapixels writes it.
QByteArray cameraFile()
{
    const QImage image(u"/usr/share/backgrounds/mate/nature/Wood.jpg"_s);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(92);
    writer.write(image.scaled(cameraSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return bytes;
}

void load(benchmark::State &state, const QString &path)
{
    for (auto _ : state) {
        const auto picture = loadPicture(path, {exportSize, true});
        if (!picture)
            state.SkipWithError(qUtf8Printable(picture.error().message));
        benchmark::DoNotOptimize(picture);
    }
}

void loadWithQt(benchmark::State &state, const QString &path)
{
    for (auto _ : state) {
        QImageReader reader(path);
        reader.setAutoTransform(true);
        reader.setClipRect(coverRegion(reader.size(), exportSize).toAlignedRect());
        benchmark::DoNotOptimize(reader.read().convertToFormat(QImage::Format_RGBX8888));
    }
}

void makeThumbnail(benchmark::State &state, const QByteArray &file)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(decodePicture(file, {thumbnailSize, true}));
}

void makeThumbnailWithQt(benchmark::State &state, QByteArray file)
{
    for (auto _ : state) {
        QBuffer buffer(&file);
        QImageReader reader(&buffer);
        reader.setScaledSize(reader.size().scaled(thumbnailSize, Qt::KeepAspectRatioByExpanding));
        benchmark::DoNotOptimize(reader.read());
    }
}

} // namespace

int main(int argc, char **argv)
{
    QImageReader::setAllocationLimit(1024);
    const auto measure = [](const std::string &name, auto function, const auto &picture) {
        benchmark::RegisterBenchmark(name.c_str(), function, picture)->Unit(benchmark::kMillisecond);
    };
    for (const QString &path : photographs()) {
        const std::string name = QFileInfo(path).baseName().toStdString();
        measure("export/" + name, load, path);
        measure("export with Qt/" + name, loadWithQt, path);
    }
    const QByteArray camera = cameraFile();
    measure("thumbnail of 24 MP", makeThumbnail, camera);
    measure("thumbnail of 24 MP with Qt", makeThumbnailWithQt, camera);
    QFile progressive(u"/usr/share/backgrounds/mate/abstract/Elephants_5640x3172.jpg"_s);
    if (progressive.open(QIODevice::ReadOnly)) {
        const QByteArray file = progressive.readAll();
        measure("thumbnail of 18 MP, progressive", makeThumbnail, file);
        measure("thumbnail of 18 MP, progressive, with Qt", makeThumbnailWithQt, file);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
