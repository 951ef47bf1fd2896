#include "tests/ui/window_test.h"
#include "ui/common/dates.h"
#include "ui/common/thumbnail_loader.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class ThumbnailTest : public WindowTest
{
    Q_OBJECT

private:
    ThumbnailRequest request(const QString &path) const
    {
        return {.path = path, .size = {150, 150}, .radius = 12, .pixelRatio = 1, .hasShadow = true};
    }

private slots:
    void fillsTheFrameWithTheMiddle()
    {
        QImage wide(300, 100, QImage::Format_RGB32);
        wide.fill(Qt::blue);
        for (int x = 100; x < 200; ++x) {
            for (int y = 0; y < 100; ++y)
                wide.setPixelColor(x, y, Qt::red);
        }
        const QString path = session().library().path(u"wide.png"_s);
        QVERIFY(wide.save(path));
        const QImage image = makeThumbnail(request(path));
        QCOMPARE(image.size(), QSize(158, 158));
        QCOMPARE(image.pixelColor(79, 79), QColor(Qt::red));
        // Nearer to the edges the filter sees what lies beyond.
        QCOMPARE(image.pixelColor(14, 79), QColor(Qt::red));
        QCOMPARE(image.pixelColor(144, 79), QColor(Qt::red));
        // Outside the frame there is nothing but shadow, and less of it further away.
        const QColor near = image.pixelColor(3, 79);
        QVERIFY(near.alpha() > 10 && near.alpha() < 0.33 * 255);
        QVERIFY(image.pixelColor(0, 79).alpha() < near.alpha());
        QVERIFY(image.pixelColor(5, 5).alpha() < 100);
    }

    void showsGrayWhereThereIsNoPicture()
    {
        QVERIFY(makeThumbnail(request(u"/nowhere.png"_s)).isNull());
        ThumbnailRequest plain = request({});
        plain.hasShadow = false;
        const QColor gray = makeThumbnailPlaceholder(plain).pixelColor(75, 75);
        QCOMPARE(gray.alpha(), 51);
    }

    void servesWhatWasAskedForLastFirstAndOnlyOnce()
    {
        ThumbnailLoader loader;
        QObject askers[3];
        QList<int> served;
        for (int i = 0; i < 3; ++i) {
            const QUrl file = pictureFile(u"%1.png"_s.arg(i));
            loader.request(request(file.toLocalFile()), &askers[i], [&served, i](const QImage &image) {
                QVERIFY(!image.isNull());
                served.append(i);
            });
        }
        loader.withdraw(&askers[1]);
        QTRY_COMPARE(served.size(), 2);
        QTest::qWait(50);
        QVERIFY(!served.contains(1));
        QVERIFY(!loader.cached(request(pictureFile(u"0.png"_s).toLocalFile())).isNull());
    }

    void keepsNoMoreThanItsShare()
    {
        ThumbnailLoader loader;
        const QString path = pictureFile(u"big.png"_s).toLocalFile();
        int served = 0;
        QObject asker;
        // 4 MB each: more than fit.
        for (int i = 0; i < 20; ++i) {
            const ThumbnailRequest big{.path = path, .size = {1000, 1000 + i}, .radius = 0};
            loader.request(big, &asker, [&served](const QImage &) { ++served; });
            QTRY_COMPARE(served, i + 1);
        }
        QVERIFY(loader.cachedBytes() <= ThumbnailLoader::mostCachedBytes);
        QVERIFY(loader.cachedBytes() > ThumbnailLoader::mostCachedBytes / 2);
    }

    void tellsDistancesInTime_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("now") << qint64(0) << u"0 seconds"_s;
        QTest::newRow("second") << qint64(1) << u"1 second"_s;
        QTest::newRow("minutes") << qint64(5 * 60 + 59) << u"5 minutes"_s;
        QTest::newRow("hours") << qint64(23 * 3600 + 3599) << u"23 hours"_s;
        QTest::newRow("week") << qint64(8 * 86400) << u"1 week"_s;
        QTest::newRow("years") << qint64(800) * 86400 << u"2 years"_s;
    }
    void tellsDistancesInTime()
    {
        QFETCH(const qint64, seconds);
        QFETCH(const QString, text);
        const QDateTime from = QDateTime::fromString(u"2026-06-03T12:00:00Z"_s, Qt::ISODate);
        QCOMPARE(Dates().distance(from, from.addSecs(seconds)), text);
        QCOMPARE(Dates().day(from), u"June 4, 2026"_s); // it is night here
    }
};

QTEST_MAIN(ThumbnailTest)
#include "tst_thumbnail.moc"
