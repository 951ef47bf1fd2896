#include "picture_samples.h"
#include "render/picture/picture_loader.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtConcurrent/QtConcurrent>
#include <QtCore/QTemporaryDir>
#include <QtGui/QColorSpace>
#include <QtGui/QColorTransform>

#include <algorithm>
#include <functional>

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

QImage filled(QRgb color)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

/// A table of files, each with the whole picture that it should show, upright and in sRGB.
class PictureFormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsByContent_data()
    {
        m_add = table<QByteArray, PictureFormat, QImage, int>({"file", "format", "expected", "tolerance"});
        addKinds();
        addTransparent();
        addTurned();
        addColorSpaces();
    }

    void loadsByContent()
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
             {PictureRequest{}, PictureRequest{{900, 1600}, true}, PictureRequest{{40, 40}, true},
              PictureRequest{{30, 90}, true}}) {
            const auto picture = loadPicture(path, request);
            QVERIFY2(picture, reason(picture));
            const int averaging = neededScale(expected.size(), request) <= 0.5 ? 2 : 0;
            QCOMPARE(mistake(*picture, request, expected, tolerance + averaging), QString());
        }
    }

    void loadsOnManyThreads()
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

private:
    void addKinds()
    {
        const QImage image = painting(130, 97);
        const QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
        const QImage deep = image.convertToFormat(QImage::Format_RGBX64);
        const QImage indexed = gray.convertToFormat(QImage::Format_Indexed8);
        m_add("JPEG", encoded(image, "jpeg", 100), PictureFormat::Jpeg, image, 6);
        m_add("PNG", encoded(image, "png"), PictureFormat::Png, image, 0);
        m_add("PNG, gray", encoded(gray, "png"), PictureFormat::Png, gray, 0);
        m_add("PNG, 256 colours", encoded(indexed, "png"), PictureFormat::Png, indexed, 0);
        m_add("PNG, 16 bits", encoded(deep, "png"), PictureFormat::Png, image, 0);
        m_add("WebP", encoded(image, "webp", 100), PictureFormat::WebP, image, 0);
        m_add("BMP", encoded(image, "bmp"), PictureFormat::Bmp, image, 0);
        m_add("TIFF", encoded(image, "tiff"), PictureFormat::Tiff, image, 0);
        m_add("TIFF, 16 bits", encoded(deep, "tiff"), PictureFormat::Tiff, image, 0);
        m_add("HEIC", heif(image), PictureFormat::Heic, image, coded);
        m_add("HEIC, 10 bits", heif(image, {.bits = 10}), PictureFormat::Heic, image, coded);
        m_add("AVIF", heif(image, {.codec = heif_compression_AV1}), PictureFormat::Avif, image, coded);
        QImage bars(16, 27, QImage::Format_RGB32);
        for (int y = 0; y < 27; ++y)
            std::fill_n(reinterpret_cast<QRgb *>(bars.scanLine(y)), 16, 0xFF0000u >> y / 9 * 8 | 0xFFu << 24);
        m_add("GIF, its first frame", gif(), PictureFormat::Gif, bars, 0);
    }

    void addTransparent()
    {
        const QImage image = veil();
        const QImage deep = image.convertToFormat(QImage::Format_RGBA64);
        m_add("transparent PNG", encoded(image, "png"), PictureFormat::Png, image, 1);
        m_add("transparent PNG, 16 bits", encoded(deep, "png"), PictureFormat::Png, image, 1);
        m_add("transparent WebP", encoded(image, "webp", 100), PictureFormat::WebP, image, 1);
        m_add("transparent HEIC", heif(image), PictureFormat::Heic, image, coded);
        m_add("transparent AVIF", heif(image, {.codec = heif_compression_AV1}), PictureFormat::Avif, image,
              coded);
    }

    void addTurned()
    {
        const QImage stored = painting(128, 64);
        const QByteArray png = encoded(stored, "png"), webp = encoded(stored, "webp", 100);
        const QByteArray tiff = encoded(stored, "tiff");
        for (int i = 0; i <= 9; ++i) { // 0 and 9 have no meaning
            const QImage whole = upright(stored, i);
            const auto name = [i](const char *kind) {
                return "turned " + QByteArray(kind) + QByteArray::number(i);
            };
            m_add(name("PNG"), pngWithOrientation(png, i), PictureFormat::Png, whole, 0);
            m_add(name("WebP"), webpWithOrientation(webp, i), PictureFormat::WebP, whole, 0);
            m_add(name("TIFF"), tiffWithOrientation(tiff, i), PictureFormat::Tiff, whole, 0);
            if (i >= 1 && i <= 8)
                m_add(name("HEIC"), heif(stored, {.orientation = heif_orientation(i)}), PictureFormat::Heic,
                      whole, coded);
        }
    }

    void addColorSpaces()
    {
        const QColorSpace space(QColorSpace::DisplayP3);
        QImage plain = filled(qRgb(90, 160, 70));
        const QImage shown =
            filled(space.transformationToColorSpace(QColorSpace::SRgb).map(plain.pixel(0, 0)));
        const QByteArray profile = space.iccProfile();
        const auto avif = heif_compression_AV1;
        m_add("HEIC, ICC", heif(plain, {.iccProfile = profile}), PictureFormat::Heic, shown, 3);
        m_add("AVIF, ICC", heif(plain, {.codec = avif, .iccProfile = profile}), PictureFormat::Avif, shown,
              3);
        m_add("HEIC, code points", heif(plain, {.primaries = 12}), PictureFormat::Heic, shown, 3);
        m_add("AVIF, code points", heif(plain, {.codec = avif, .primaries = 12}), PictureFormat::Avif, shown,
              3);
        plain.setColorSpace(space);
        const QImage deep = plain.convertToFormat(QImage::Format_RGBX64);
        m_add("PNG, ICC", encoded(plain, "png"), PictureFormat::Png, shown, 3);
        m_add("PNG, 16 bits, ICC", encoded(deep, "png"), PictureFormat::Png, shown, 3);
        m_add("TIFF, ICC", encoded(plain, "tiff"), PictureFormat::Tiff, shown, 3);
        m_add("WebP, ICC", encoded(plain, "webp", 100), PictureFormat::WebP, shown, 3);

        const QImage dark = filled(qRgb(16, 32, 48));
        QByteArray png = encoded(dark, "png");
        // gAMA: 0.45455, with its checksum; it stands right after IHDR.
        png.insert(33, QByteArray::fromHex("0000000467414d410000b18f0bfc6105"));
        m_add("PNG, a gamma of 2.2 for sRGB", png, PictureFormat::Png, dark, 0);

        // The signals of diffuse white, 203 cd/m², in both systems of high dynamic range.
        for (const auto &[transfer, white] : {std::pair(16, 148), std::pair(18, 191)}) {
            const HeifOptions options{.primaries = 9, .transfer = transfer};
            m_add(transfer == 16 ? "HEIC, PQ" : "HEIC, HLG", heif(filled(qRgb(white, white, white)), options),
                  PictureFormat::Heic, filled(qRgb(255, 255, 255)), 5);
        }
    }

    QString saved(const QString &name, const QByteArray &bytes) const
    {
        writeFile(m_folder.filePath(name), bytes);
        return m_folder.filePath(name);
    }

    std::function<void(const char *, const QByteArray &, PictureFormat, const QImage &, int)> m_add;
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(PictureFormatsTest)
#include "tst_picture_formats.moc"
