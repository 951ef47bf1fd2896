#include "render/export/fitting_quality.h"
#include "render/export/slide_file.h"
#include "render/text/fonts.h"
#include "tests/table.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QColorSpace>
#include <QtGui/QImage>
#include <QtGui/QImageReader>

#include <random>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// Smooth colours with some noise: all that makes files large or small.
QImage photograph()
{
    std::mt19937 random(3);
    QImage image(600, 900, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int noise = static_cast<int>(random() % 5);
            image.setPixel(x, y, qRgb(x * 250 / 600 + noise, y * 250 / 900 + noise, 90 + (x + y) % 80));
        }
    }
    return image;
}

double meanDifference(const QImage &one, const QImage &other)
{
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum +=
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
        }
    }
    return double(sum) / (3.0 * one.width() * one.height());
}

} // namespace

class TestExportFormats : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(registerFonts());
        QVERIFY(photograph().save(m_folder.filePath(u"photo.png"_s)));
    }

    void slidesInEachFormat_data()
    {
        const auto row =
            table<SlideFormat, bool, Corners, double>({"format", "isProgressive", "corners", "farthest"});
        row("small PNG", SlideFormat::png, false, Corners::rounded, 0);
        row("small opaque PNG", SlideFormat::png, false, Corners::square, 0);
        row("JPEG", SlideFormat::jpeg, false, Corners::square, 2);
        row("progressive JPEG", SlideFormat::jpeg, true, Corners::square, 2);
        row("JPEG on white", SlideFormat::jpeg, false, Corners::rounded, 2);
        row("WebP", SlideFormat::webp, false, Corners::square, 2.5);
        row("lossless WebP", SlideFormat::losslessWebp, false, Corners::rounded, 0);
    }

    void slidesInEachFormat()
    {
        QFETCH(const SlideFormat, format);
        QFETCH(const Corners, corners);
        ExportOptions options{.width = 300, .corners = corners};
        const QImage png = exported(options);
        QFETCH(const bool, isProgressive);
        options.encoding = {.format = format, .quality = 95, .progressive = isProgressive, .isSmall = true};
        const QImage image = exported(options);
        QCOMPARE(image.size(), QSize(300, 533));
        QCOMPARE(image.colorSpace().primaries(), QColorSpace::Primaries::SRgb);
        QCOMPARE(image.colorSpace().transferFunction(), QColorSpace::TransferFunction::SRgb);
        QFETCH(const double, farthest);
        QImage expected = png;
        if (format == SlideFormat::jpeg) {
            expected = QImage(png.size(), QImage::Format_RGB32);
            expected.fill(Qt::white);
            for (int y = 0; y < png.height(); ++y)
                for (int x = 0; x < png.width(); ++x) {
                    const QRgb pixel = qPremultiply(png.pixel(x, y));
                    const int white = 255 - qAlpha(pixel);
                    expected.setPixel(x, y,
                                      qRgb(qRed(pixel) + white, qGreen(pixel) + white, qBlue(pixel) + white));
                }
        }
        if (farthest == 0)
            QVERIFY(image.convertToFormat(QImage::Format_RGBA8888) ==
                    png.convertToFormat(QImage::Format_RGBA8888));
        const double difference = meanDifference(image, expected);
        QVERIFY2(difference <= farthest, qPrintable(QString::number(difference)));
        // Nothing of the canvas's own corners where there are none.
        QCOMPARE(qAlpha(image.pixel(0, 0)) < 100, corners == Corners::rounded && image.hasAlphaChannel());
    }

    void platforms_data()
    {
        const auto row = table<QString, AspectRatio, bool, QSize>({"platform", "shape", "isTaken", "size"});
        row("TikTok", u"tiktok"_s, AspectRatio::tiktok, true, {1080, 1920});
        row("TikTok, another shape", u"tiktok"_s, AspectRatio::instagram, true, {1080, 1350});
        row("Instagram", u"instagram"_s, AspectRatio::instagram, true, {1080, 1350});
        row("Instagram, square", u"instagram"_s, AspectRatio::square, true, {1080, 1080});
        row("Instagram, too high", u"instagram"_s, AspectRatio::tiktok, false, {1080, 1350});
        row("a story, too wide", u"stories"_s, AspectRatio::square, false, {1080, 1920});
        row("Pinterest, too high", u"pinterest"_s, AspectRatio::tiktok, false, {1000, 1500});
        row("Pinterest", u"pinterest"_s, AspectRatio::instagram, true, {1000, 1250});
    }

    void platforms()
    {
        QFETCH(const QString, platform);
        QFETCH(const AspectRatio, shape);
        ExportOptions options = ExportOptions::forPlatform(*platformNamed(platform));
        QTEST(options.takes(shape), "isTaken");
        options.fits = true;
        QVERIFY(options.takes(shape));
        const QImage image = exported(options, shape);
        QTEST(image.size(), "size");
        QVERIFY(!image.hasAlphaChannel());
    }

    /// The slide stands sharp in the middle; on the ground beside it neighbours hardly differ.
    void theGroundIsOutOfFocus()
    {
        ExportOptions options = ExportOptions::forPlatform(*platformNamed(u"instagram"));
        options.fits = true;
        options.encoding = {};
        const QImage whole = exported(options, AspectRatio::tiktok);
        options = {.width = 759, .corners = Corners::square};
        const QImage slide = exported(options, AspectRatio::tiktok);
        const QRect place(160, 0, 759, 1349);
        QVERIFY(meanDifference(whole.copy(place), slide.copy(0, 0, 759, 1349)) < 1);
        int most = 0;
        for (int y = 1; y < whole.height(); ++y)
            most = std::max(most, std::abs(qGreen(whole.pixel(80, y)) - qGreen(whole.pixel(80, y - 1))));
        QVERIFY2(most <= 3, qPrintable(QString::number(most)));
        QVERIFY(qGreen(whole.pixel(80, 1300)) > qGreen(whole.pixel(80, 50)) + 50);
    }

    void aLimitOfBytes()
    {
        const auto sizeOf = [this](const SlideEncoding &encoding) {
            const EncodedSlide slide = drawn({.encoding = encoding, .width = 300});
            return slide.isDrawn() && writeSlideFile(path(), slide) ? QFileInfo(path()).size() : -1;
        };
        for (const SlideFormat format : {SlideFormat::jpeg, SlideFormat::webp}) {
            const qint64 all = sizeOf({.format = format});
            const qint64 limit = all * 2 / 5;
            const qint64 size = sizeOf({.format = format, .mostBytes = limit});
            QVERIFY2(size <= limit && size > limit * 3 / 4, qPrintable(u"%1 %2"_s.arg(size).arg(limit)));
            QCOMPARE(sizeOf({.format = format, .mostBytes = all}), all);
            QCOMPARE(sizeOf({.format = format, .mostBytes = 100}), -1);
        }
        const qint64 png = sizeOf({});
        QCOMPARE(sizeOf({.mostBytes = png}), png);
        const EncodedSlide tooLarge = drawn({.encoding = {.mostBytes = png - 1}, .width = 300});
        const Result<> written = writeSlideFile(path(), tooLarge);
        QVERIFY(!written && written.error().message.contains(QString::number(png - 1)));
    }

    void encodingsAreFew()
    {
        // Sizes as real ones: steep at the upper end, with steps.
        for (int limit = 1; limit < 4'000; limit += 37) {
            int encodings = 0;
            const auto encode = [&](int quality) -> Result<QByteArray> {
                ++encodings;
                return QByteArray(int(40 * std::exp(quality / 22.0)) / 8 * 8, 'x');
            };
            const Result<QByteArray> file = encodeWithin(limit, 90, encode);
            QVERIFY(encodings <= mostEncodings);
            const qsizetype smallest = encode(1)->size();
            QVERIFY2(file->size() <= std::max<qsizetype>(limit, smallest),
                     qPrintable(QString::number(limit)));
            QVERIFY2(limit < 2 * smallest || file->size() * 10 >= std::min(limit, 2'384) * 8,
                     qPrintable(u"%1 of %2"_s.arg(file->size()).arg(limit)));
        }
    }

private:
    QString path() const { return m_folder.filePath(u"slide"_s); }

    EncodedSlide drawn(const ExportOptions &options, AspectRatio shape = AspectRatio::tiktok) const
    {
        const SlideValues values{.text = u"Text"_s, .subtitle = u"below"_s};
        const SlideJob job = exportJob(values, m_folder.filePath(u"photo.png"_s), shape, options);
        return SlideRenderer(2).start({job}).next();
    }

    QImage exported(const ExportOptions &options, AspectRatio shape = AspectRatio::tiktok) const
    {
        return writeSlideFile(path(), drawn(options, shape)) ? QImage(path()) : QImage();
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(TestExportFormats)
#include "tst_export_formats.moc"
