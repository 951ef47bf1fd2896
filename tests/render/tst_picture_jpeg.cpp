#include "picture_samples.h"
#include "render/picture/picture_loader.h"
#include "tests/table.h"

#include <QtCore/QtEndian>
#include <QtGui/QColorSpace>
#include <QtGui/QColorTransform>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(mosslantern::samples::JpegOptions)
Q_DECLARE_METATYPE(mosslantern::PictureRequest)

namespace {

bool near(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

/// Where each scan begins.
QList<qsizetype> scans(const QByteArray &file)
{
    QList<qsizetype> result;
    for (auto at = file.indexOf("\xff\xda"); at >= 0; at = file.indexOf("\xff\xda", at + 2))
        result.append(at);
    return result;
}

} // namespace

class PictureJpegTest : public QObject
{
    Q_OBJECT

private slots:
    void showsTheRegion_data()
    {
        table<JpegOptions, PictureRequest>({"options", "request"});
        const std::pair<const char *, JpegOptions> kinds[]{
            {"4:4:4", {}},
            {"4:2:2", {.subsamplingAcross = 2}},
            {"4:2:0", {.subsamplingAcross = 2, .subsamplingDown = 2}},
            {"progressive", {.subsamplingAcross = 2, .subsamplingDown = 2, .progressive = true}},
        };
        const std::pair<const char *, PictureRequest> requests[]{
            {"whole", {}},
            {"enlarged, tall part", {{2160, 3840}, true}},
            {"enlarged, wide part", {{3840, 900}, true}},
            {"half", {{203, 155}, false}},
            {"half, wide part", {{200, 60}, true}},
            {"a third, square part", {{100, 100}, true}},
            {"an eighth", {{40, 30}, false}},
            {"tiny, tall part", {{6, 9}, true}},
        };
        for (const auto &[kind, options] : kinds) {
            for (const auto &[part, request] : requests)
                QTest::addRow("%s %s", kind, part) << options << request;
        }
    }

    void showsTheRegion()
    {
        QFETCH(JpegOptions, options);
        QFETCH(PictureRequest, request);
        const QByteArray file = jpeg(painting(405, 309), options);
        const QImage stored = QImage::fromData(file);
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const QImage whole = upright(stored, orientation);
            const auto picture = decodePicture(jpegWithOrientation(file, orientation), request);
            QVERIFY2(picture, reason(picture));
            // Reduced pixels are averages, of 8 × 8 and more for the small requests, and the last ones of a
            // row or column are averages of less than they span.
            const double scale = neededScale(whole.size(), request);
            const int tolerance = scale == 1 ? 0 : scale > 0.25 ? 4 : 30;
            const QString wrong = mistake(*picture, request, whole, tolerance);
            QVERIFY2(wrong.isEmpty(), qPrintable(u"orientation %1: %2"_s.arg(orientation).arg(wrong)));
        }
    }

    void readsProfilesOfTables()
    {
        const QByteArray cmyk = cmykProfile();
        // Half as light, in L*, is 119 in sRGB.
        for (const auto &[uncoloured, gray] : {std::pair(255, 255), {128, 119}, {0, 0}}) {
            QImage inks(16, 16, QImage::Format_RGB32);
            inks.fill(qRgb(uncoloured, 50, 200));
            const auto picture = decodePicture(
                jpeg(inks, {.quality = 100, .colors = JpegColors::Cmyk, .iccProfile = cmyk}), {});
            QVERIFY2(picture, reason(picture));
            const QColor color = picture->image.pixelColor(8, 8);
            QVERIFY2(std::abs(color.red() - gray) <= 2 && std::abs(color.blue() - gray) <= 2 &&
                         color.alpha() == 255,
                     qPrintable(color.name()));
        }
        // A profile of other pixels changes nothing.
        QImage plain(16, 16, QImage::Format_RGB32);
        plain.fill(qRgb(90, 120, 30));
        const auto picture = decodePicture(jpeg(plain, {.quality = 100, .iccProfile = cmyk}), {});
        QVERIFY2(picture, reason(picture));
        QVERIFY(std::abs(picture->image.pixelColor(8, 8).green() - 120) <= 2);
    }

    void readsProfilesOfGray()
    {
        // Of light as much as the level says: sRGB shows a quarter of it as 137.
        QImage gray(16, 16, QImage::Format_Grayscale8);
        gray.fill(64);
        const QByteArray profile = linearGrayProfile();
        const QByteArray file =
            jpeg(gray, {.quality = 100, .colors = JpegColors::Gray, .iccProfile = profile});
        const auto picture = decodePicture(file, {});
        QVERIFY2(picture, reason(picture));
        QVERIFY2(std::abs(picture->image.pixelColor(8, 8).red() - 137) <= 1,
                 qPrintable(picture->image.pixelColor(8, 8).name()));
    }

    void readsColors_data()
    {
        const auto row = table<JpegOptions, QRgb, QRgb>({"options", "stored", "shown"});
        const QRgb orange = qRgb(200, 100, 50);
        row("gray", {.colors = JpegColors::Gray}, orange, qRgb(130, 130, 130));
        row("CMYK", {.colors = JpegColors::Cmyk}, orange, orange);
        row("profile of sRGB", {.iccProfile = QColorSpace(QColorSpace::SRgb).iccProfile()}, orange, orange);
        row("profile that is none", {.iccProfile = "acsp"_ba.repeated(100)}, orange, orange);
        for (const auto named : {QColorSpace::DisplayP3, QColorSpace::AdobeRgb, QColorSpace::ProPhotoRgb}) {
            const QColorSpace space(named);
            const QColorTransform toSrgb = space.transformationToColorSpace(QColorSpace::SRgb);
            for (const QRgb color : {qRgb(255, 0, 0), qRgb(90, 160, 70), qRgb(40, 40, 200)})
                row(qPrintable(space.description() + QColor(color).name()),
                    {.quality = 100, .iccProfile = space.iccProfile()}, color, toSrgb.map(color));
        }
    }

    void readsColors()
    {
        QFETCH(JpegOptions, options);
        QFETCH(QRgb, stored);
        QFETCH(QRgb, shown);
        QImage plain(40, 40, QImage::Format_RGB32);
        plain.fill(stored);
        const auto picture = decodePicture(jpeg(plain, options), {});
        QVERIFY2(picture, reason(picture));
        QCOMPARE(picture->image.format(), QImage::Format_RGBX8888);
        const QRgb middle = picture->image.pixel(20, 20);
        QVERIFY2(near(middle, shown, 3), qPrintable(QColor(middle).name()));
    }

    void acceptsMissingDetailOnly_data()
    {
        const auto row = table<bool, double, PictureRequest, bool>(
            {"progressive", "kept", "request", "accepted"}); // of the bytes
        const PictureRequest whole, band{{400, 100}, true};
        row("last rows missing", false, 0.95, whole, true);
        row("last quarter missing", false, 0.75, whole, false);
        row("last quarter missing, not wanted", false, 0.75, band, true);
        row("first half missing of what is wanted", false, 0.5, band, false);
        row("refinements missing", true, 0.9, whole, true);
        row("colours missing", true, 0.15, whole, false);
    }

    void acceptsMissingDetailOnly()
    {
        QFETCH(bool, progressive);
        QFETCH(double, kept);
        QFETCH(PictureRequest, request);
        QByteArray file = jpeg(painting(400, 400), {.progressive = progressive});
        const QImage whole = QImage::fromData(file);
        const auto start = scans(file).first();
        file.truncate(start + qsizetype(double(file.size() - start) * kept));
        // A program that repairs such a file ends it properly; nothing is gained by that.
        for (const QByteArray &bytes : {file, file + "\xff\xd9"_ba}) {
            const auto picture = decodePicture(bytes, request);
            QTEST(picture.has_value(), "accepted");
            if (!picture)
                QCOMPARE(picture.error().message, u"The picture file is incomplete."_s);
            else
                QCOMPARE(picture->fullSize, whole.size());
        }
    }

    void stopsAtTooManyScans()
    {
        const QByteArray file = jpeg(painting(64, 64), {.progressive = true});
        const auto starts = scans(file);
        QByteArray bomb = file.first(starts.last());
        for (int i = 0; i < 1000; ++i)
            bomb += file.sliced(starts.last(), file.size() - 2 - starts.last());
        QVERIFY(decodePicture(file, {}));
        QVERIFY(!decodePicture(bomb + "\xff\xd9"_ba, {}));
    }
};

QTEST_GUILESS_MAIN(PictureJpegTest)
#include "tst_picture_jpeg.moc"
