#include "picture_samples.h"
#include "render/picture/picture_loader.h"

#include <QtCore/QtEndian>
#include <QtGui/QColorSpace>
#include <QtGui/QColorTransform>
#include <QtTest/QTest>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(mosslantern::samples::JpegOptions)
Q_DECLARE_METATYPE(mosslantern::PictureRequest)

class PictureJpegTest : public QObject
{
    Q_OBJECT

private slots:
    void showsTheRegion_data();
    void showsTheRegion();
    void readsColors_data();
    void readsColors();
    void convertsProfiles();
    void acceptsMissingDetailOnly_data();
    void acceptsMissingDetailOnly();
    void stopsAtTooManyScans();
};

namespace {

QRgb middle(const Picture &picture)
{
    return picture.image.pixel(picture.image.width() / 2, picture.image.height() / 2);
}

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

void PictureJpegTest::showsTheRegion_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<PictureRequest>("request");
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

void PictureJpegTest::showsTheRegion()
{
    QFETCH(JpegOptions, options);
    QFETCH(PictureRequest, request);
    const QByteArray file = jpeg(painting(405, 309), options);
    const QImage stored = QImage::fromData(file);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QImage whole = upright(stored, orientation);
        const auto picture = decodePicture(jpegWithOrientation(file, orientation), request);
        QVERIFY2(picture, reason(picture));
        // Reduced pixels are averages, of 8 × 8 and more for the small requests, and the last ones of a row
        // or column are averages of less than they span.
        const double scale = neededScale(whole.size(), request);
        const int tolerance = scale == 1 ? 0 : scale > 0.25 ? 4 : 30;
        const QString wrong = mistake(*picture, request, whole, tolerance);
        QVERIFY2(wrong.isEmpty(), qPrintable(u"orientation %1: %2"_s.arg(orientation).arg(wrong)));
    }
}

void PictureJpegTest::readsColors_data()
{
    QTest::addColumn<JpegOptions>("options");
    QTest::addColumn<QRgb>("expected");
    QTest::newRow("gray") << JpegOptions{.colors = JpegColors::Gray} << qRgb(130, 130, 130);
    QTest::newRow("CMYK") << JpegOptions{.colors = JpegColors::Cmyk} << qRgb(200, 100, 50);
    QTest::newRow("profile of sRGB") << JpegOptions{.iccProfile = QColorSpace(QColorSpace::SRgb).iccProfile()}
                                     << qRgb(200, 100, 50);
    QTest::newRow("profile that is none")
        << JpegOptions{.iccProfile = "acsp"_ba.repeated(100)} << qRgb(200, 100, 50);
}

void PictureJpegTest::readsColors()
{
    QFETCH(JpegOptions, options);
    QFETCH(QRgb, expected);
    QImage plain(40, 40, QImage::Format_RGB32);
    plain.fill(qRgb(200, 100, 50));
    const auto picture = decodePicture(jpeg(plain, options), {});
    QVERIFY2(picture, reason(picture));
    QCOMPARE(picture->image.format(), QImage::Format_RGBX8888);
    QVERIFY2(near(middle(*picture), expected, 3), qPrintable(QColor(middle(*picture)).name()));
}

void PictureJpegTest::convertsProfiles()
{
    for (const auto named : {QColorSpace::DisplayP3, QColorSpace::AdobeRgb, QColorSpace::ProPhotoRgb}) {
        const QColorSpace space(named);
        const QColorTransform toSrgb = space.transformationToColorSpace(QColorSpace::SRgb);
        for (const QRgb color : {qRgb(255, 0, 0), qRgb(90, 160, 70), qRgb(40, 40, 200)}) {
            QImage plain(40, 40, QImage::Format_RGB32);
            plain.fill(color);
            const auto picture =
                decodePicture(jpeg(plain, {.quality = 100, .iccProfile = space.iccProfile()}), {});
            QVERIFY(picture);
            QVERIFY2(near(middle(*picture), toSrgb.map(color), 3),
                     qPrintable(QColor(middle(*picture)).name()));
        }
    }
}

void PictureJpegTest::acceptsMissingDetailOnly_data()
{
    QTest::addColumn<bool>("progressive");
    QTest::addColumn<double>("kept"); // of the bytes
    QTest::addColumn<PictureRequest>("request");
    QTest::addColumn<bool>("accepted");
    const PictureRequest whole, band{{400, 100}, true};
    QTest::newRow("last rows missing") << false << 0.95 << whole << true;
    QTest::newRow("last quarter missing") << false << 0.75 << whole << false;
    QTest::newRow("last quarter missing, not wanted") << false << 0.75 << band << true;
    QTest::newRow("first half missing of what is wanted") << false << 0.5 << band << false;
    QTest::newRow("refinements missing") << true << 0.9 << whole << true;
    QTest::newRow("colours missing") << true << 0.15 << whole << false;
}

void PictureJpegTest::acceptsMissingDetailOnly()
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

void PictureJpegTest::stopsAtTooManyScans()
{
    const QByteArray file = jpeg(painting(64, 64), {.progressive = true});
    const auto starts = scans(file);
    QByteArray bomb = file.first(starts.last());
    for (int i = 0; i < 1000; ++i)
        bomb += file.sliced(starts.last(), file.size() - 2 - starts.last());
    QVERIFY(decodePicture(file, {}));
    QVERIFY(!decodePicture(bomb + "\xff\xd9"_ba, {}));
}

QTEST_GUILESS_MAIN(PictureJpegTest)
#include "tst_picture_jpeg.moc"
