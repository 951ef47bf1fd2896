#include "picture_samples.h"
#include "render/picture/picture_loader.h"

#include <QtConcurrent/QtConcurrent>
#include <QtCore/QTemporaryDir>
#include <QtGui/QColorSpace>
#include <QtGui/QColorTransform>
#include <QtGui/QImageWriter>
#include <QtTest/QTest>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

namespace {

// What encoding costs that halves the resolution of the colours.
constexpr int coded = 14;

/// Fades from clear at the top to nearly opaque.
QImage veil()
{
    QImage image = painting(64, 64).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, (image.pixel(x, y) & 0xFFFFFF) | quint32(4 * y) << 24);
    }
    return image;
}

} // namespace

class PictureFormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsByContent_data();
    void loadsByContent();
    void turnsUpright_data();
    void turnsUpright();
    void keepsTransparency_data();
    void keepsTransparency();
    void convertsToSrgb_data();
    void convertsToSrgb();
    void takesAGammaOf22ForSrgb();
    void showsTheFirstFrame();
    void showsHighDynamicRangeAtDiffuseWhite();
    void loadsOnManyThreads();

private:
    QString saved(const QString &name, const QByteArray &bytes) const;

    QTemporaryDir m_folder;
};

QString PictureFormatsTest::saved(const QString &name, const QByteArray &bytes) const
{
    QFile file(m_folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
}

void PictureFormatsTest::loadsByContent_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<PictureFormat>("format");
    QTest::addColumn<QImage>("expected");
    QTest::addColumn<int>("tolerance");
    const QImage image = painting(130, 97);
    const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
    const QImage deep = image.convertToFormat(QImage::Format_RGBX64);
    const QImage indexed = gray.convertToFormat(QImage::Format_Indexed8);
    const auto add = [](const char *name, const QByteArray &file, PictureFormat format,
                        const QImage &expected, int tolerance = 0) {
        QTest::newRow(name) << file << format << expected << tolerance;
    };
    add("JPEG", encoded(image, "jpeg", 100), PictureFormat::Jpeg, image, 6);
    add("PNG", encoded(image, "png"), PictureFormat::Png, image);
    add("PNG, gray", encoded(gray, "png"), PictureFormat::Png, gray);
    add("PNG, 256 colours", encoded(indexed, "png"), PictureFormat::Png, indexed);
    add("PNG, 16 bits", encoded(deep, "png"), PictureFormat::Png, image);
    add("WebP", encoded(image, "webp", 100), PictureFormat::WebP, image);
    add("BMP", encoded(image, "bmp"), PictureFormat::Bmp, image);
    add("TIFF", encoded(image, "tiff"), PictureFormat::Tiff, image);
    add("TIFF, 16 bits", encoded(deep, "tiff"), PictureFormat::Tiff, image);
    add("HEIC", heif(image), PictureFormat::Heic, image, coded);
    add("HEIC, 10 bits", heif(image, {.bits = 10}), PictureFormat::Heic, image, coded);
    add("AVIF", heif(image, {.codec = heif_compression_AV1}), PictureFormat::Avif, image, coded);
}

void PictureFormatsTest::loadsByContent()
{
    QFETCH(QByteArray, file);
    QFETCH(QImage, expected);
    QFETCH(int, tolerance);
    const QString path = saved(u"picture.jpeg.txt"_s, file);
    const auto info = readPictureInfo(path);
    QVERIFY(info);
    QTEST(info->format, "format");
    QCOMPARE(info->size, expected.size());
    for (const PictureRequest &request :
         {PictureRequest{}, PictureRequest{{900, 1600}, true}, PictureRequest{{40, 40}, true}}) {
        const auto picture = loadPicture(path, request);
        QVERIFY2(picture, reason(picture));
        const bool reducing = neededScale(expected.size(), request) < 1;
        const QString wrong = mistake(*picture, request, expected, reducing ? tolerance + 2 : tolerance);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

void PictureFormatsTest::turnsUpright_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char *kind : {"png", "webp", "tiff", "heic"})
        QTest::newRow(kind) << QByteArray(kind);
}

void PictureFormatsTest::turnsUpright()
{
    QFETCH(QByteArray, kind);
    const QImage stored = painting(128, 64);
    const PictureRequest part{{30, 90}, true};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        QByteArray file;
        if (kind == "png")
            file = pngWithOrientation(encoded(stored, "png"), orientation);
        else if (kind == "webp")
            file = webpWithOrientation(encoded(stored, "webp", 100), orientation);
        else if (kind == "heic")
            file = heif(stored, {.orientation = heif_orientation(orientation)});
        else
            file = tiffWithOrientation(encoded(stored, "tiff"), orientation);
        const QImage whole = upright(stored, orientation);
        const auto picture = decodePicture(file, part);
        QVERIFY2(picture, reason(picture));
        const QString wrong = mistake(*picture, part, whole, kind == "heic" ? coded : 0);
        QVERIFY2(wrong.isEmpty(), qPrintable(u"orientation %1: %2"_s.arg(orientation).arg(wrong)));
        const auto info = readPictureInfo(saved(u"turned"_s, file));
        QVERIFY(info);
        QCOMPARE(info->size, whole.size());
    }
}

void PictureFormatsTest::keepsTransparency_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("tolerance");
    const QImage image = veil();
    QTest::newRow("PNG") << encoded(image, "png") << 1;
    QTest::newRow("PNG, 16 bits") << encoded(image.convertToFormat(QImage::Format_RGBA64), "png") << 1;
    QTest::newRow("WebP") << encoded(image, "webp", 100) << 1;
    QTest::newRow("HEIC") << heif(image) << coded;
    QTest::newRow("AVIF") << heif(image, {.codec = heif_compression_AV1}) << coded;
}

void PictureFormatsTest::keepsTransparency()
{
    QFETCH(QByteArray, file);
    QFETCH(int, tolerance);
    const auto picture = decodePicture(file, {});
    QVERIFY2(picture, reason(picture));
    const QString wrong = mistake(*picture, {}, veil(), tolerance);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PictureFormatsTest::convertsToSrgb_data()
{
    QTest::addColumn<QByteArray>("file");
    QImage plain(64, 64, QImage::Format_RGB32);
    plain.fill(qRgb(90, 160, 70));
    const QByteArray profile = QColorSpace(QColorSpace::DisplayP3).iccProfile();
    QTest::newRow("HEIC, ICC") << heif(plain, {.iccProfile = profile});
    QTest::newRow("AVIF, ICC") << heif(plain, {.codec = heif_compression_AV1, .iccProfile = profile});
    QTest::newRow("HEIC, code points") << heif(plain, {.primaries = 12});
    QTest::newRow("AVIF, code points") << heif(plain, {.codec = heif_compression_AV1, .primaries = 12});
    plain.setColorSpace(QColorSpace::DisplayP3);
    QTest::newRow("PNG") << encoded(plain, "png");
    QTest::newRow("PNG, 16 bits") << encoded(plain.convertToFormat(QImage::Format_RGBX64), "png");
    QTest::newRow("TIFF") << encoded(plain, "tiff");
    QTest::newRow("WebP") << encoded(plain, "webp", 100);
}

void PictureFormatsTest::convertsToSrgb()
{
    QFETCH(QByteArray, file);
    const auto picture = decodePicture(file, {});
    QVERIFY2(picture, reason(picture));
    const QRgb expected = QColorSpace(QColorSpace::DisplayP3)
                              .transformationToColorSpace(QColorSpace::SRgb)
                              .map(qRgb(90, 160, 70));
    QImage whole(64, 64, QImage::Format_RGB32);
    whole.fill(expected);
    const QString wrong = mistake(*picture, {}, whole, 3);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PictureFormatsTest::takesAGammaOf22ForSrgb()
{
    QImage dark(8, 8, QImage::Format_RGB32);
    dark.fill(qRgb(16, 32, 48));
    QByteArray png = encoded(dark, "png");
    // gAMA: 0.45455, with its checksum; it stands right after IHDR.
    constexpr qsizetype afterHeader = 33;
    png.insert(afterHeader, QByteArray::fromHex("0000000467414d410000b18f0bfc6105"));
    const auto picture = decodePicture(png, {});
    QVERIFY2(picture, reason(picture));
    QCOMPARE(picture->image.pixel(3, 3), qRgb(16, 32, 48));
}

void PictureFormatsTest::showsTheFirstFrame()
{
    const auto picture = decodePicture(gif(), {});
    QVERIFY2(picture, reason(picture));
    QCOMPARE(picture->fullSize, QSize(30, 10));
    QCOMPARE(picture->image.pixel(5, 5), qRgb(255, 0, 0));
    QCOMPARE(picture->image.pixel(15, 5), qRgb(0, 255, 0));
    QCOMPARE(picture->image.pixel(25, 5), qRgb(0, 0, 255));
}

void PictureFormatsTest::showsHighDynamicRangeAtDiffuseWhite()
{
    // The signals of diffuse white, 203 cd/m², in both systems.
    for (const auto &[transfer, white] : {std::pair(16, 148), std::pair(18, 191)}) {
        QImage plain(64, 64, QImage::Format_RGB32);
        plain.fill(qRgb(white, white, white));
        const auto picture = decodePicture(heif(plain, {.primaries = 9, .transfer = transfer}), {});
        QVERIFY2(picture, reason(picture));
        QCOMPARE_GE(qGray(picture->image.pixel(32, 32)), 250);
    }
}

void PictureFormatsTest::loadsOnManyThreads()
{
    QStringList paths;
    const QImage image = painting(300, 200);
    for (const char *format : {"jpeg", "png", "webp", "tiff"})
        paths += saved(QString::fromLatin1(format), encoded(image, format, 95));
    paths += saved(u"heic"_s, heif(image));
    paths += saved(u"avif"_s, heif(image, {.codec = heif_compression_AV1}));
    paths = paths + paths + paths + paths;
    QThreadPool pool;
    pool.setMaxThreadCount(8);
    const auto loaded = QtConcurrent::blockingMapped(&pool, paths, [&](const QString &path) {
        const auto picture = loadPicture(path, {{100, 100}, true});
        return picture ? mistake(*picture, {{100, 100}, true}, image, 10) : picture.error().message;
    });
    for (const QString &wrong : loaded)
        QCOMPARE(wrong, QString());
}

QTEST_GUILESS_MAIN(PictureFormatsTest)
#include "tst_picture_formats.moc"
