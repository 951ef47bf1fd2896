#include "model/image_files.h"
#include "render/export/bulk_exporter.h"
#include "render/text/fonts.h"
#include "tests/model/test_library.h"

#include <QCoroTask>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtGui/QImage>
#include <QtTest/QtTest>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class TestBulkExporter : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TestLibrary> m_library;
    std::unique_ptr<QTemporaryDir> m_target;
    QStringList m_opened;

    QString path(const QString &name) const { return m_target->filePath(name); }

    BulkExporter exporter()
    {
        return BulkExporter([this](const QString &folder) { m_opened.append(folder); });
    }

    /// A plain picture of `color`, imported.
    Asset *asset(const QColor &color)
    {
        QImage picture(300, 300, QImage::Format_RGB32);
        picture.fill(color);
        const QString file = m_library->path(color.name() + u".png"_s);
        if (!picture.save(file))
            qFatal("cannot save %s", qPrintable(file));
        return importAsset(QUrl::fromLocalFile(file), m_library->store()).value();
    }

    /// A slideshow without texts, one slide for each colour, with these orders.
    Slideshow *slideshow(const QList<QColor> &colors, std::optional<AspectRatio> shape,
                         const std::optional<QString> &batchName, const QList<int> &orders = {})
    {
        std::vector<std::unique_ptr<Slide>> slides;
        for (qsizetype i = 0; i < colors.size(); ++i) {
            slides.push_back(std::make_unique<Slide>(asset(colors[i]), QString(), QString(),
                                                     TextStyle::classic, orders.isEmpty() ? i : orders[i]));
        }
        return m_library->store().insert(
            std::make_unique<Slideshow>(std::move(slides), shape, QUuid::createUuid(), batchName));
    }

    Result<> exportAll(const QList<Slideshow *> &slideshows)
    {
        BulkExporter bulk = exporter();
        return QCoro::waitFor(bulk.exportSlideshows(slideshows, m_target->path()));
    }

    /// All files below the target, as relative paths.
    QStringList files() const
    {
        QStringList found;
        for (QDirIterator all(m_target->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             all.hasNext();)
            found.append(QDir(m_target->path()).relativeFilePath(all.next()));
        found.sort();
        return found;
    }

    QColor colorOf(const QString &name) const
    {
        const QImage image(path(name));
        return image.isNull() ? QColor() : image.pixelColor(image.width() / 4, image.height() / 4);
    }

private slots:
    void initTestCase() { QVERIFY(registerFonts()); }

    void onlyWhatAPlatformTakes()
    {
        const QList<QColor> many(12, Qt::red);
        const QList<Slideshow *> slideshows{slideshow({Qt::blue}, AspectRatio::tiktok, u"B"_s),
                                            slideshow(many, AspectRatio::square, u"B"_s)};
        BulkExporter bulk = exporter();
        ExportOptions options = ExportOptions::forPlatform(*platformNamed(u"instagram"));
        options.width = 40;
        bulk.setOptions(options);
        QStringList reasons;
        connect(&bulk, &BulkExporter::fileLeftOut, this,
                [&](const QString &reason) { reasons.append(reason); });
        QList<int> counts;
        connect(&bulk, &BulkExporter::progressed, this, [&](int written, int leftOut, int total) {
            counts = {written, leftOut, total};
        });
        QVERIFY(QCoro::waitFor(bulk.exportSlideshows(slideshows, m_target->path())));
        QCOMPARE(QDir(path(u"B"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{u"Slideshow_2"_s});
        const QStringList files = QDir(path(u"B/Slideshow_2"_s)).entryList(QDir::Files);
        QCOMPARE(files.size(), 10);
        QCOMPARE(files.last(), u"Slide_10.jpg"_s);
        QCOMPARE(counts, QList<int>({10, 3, 13}));
        QCOMPARE(reasons.size(), 2);
        QVERIFY(reasons[0].contains(u"9:16") && reasons[1].contains(u"not 12"));
        QVERIFY(!QCoro::waitFor(bulk.exportSlideshow(*slideshows[0], path(u"single"_s))));
        QVERIFY(!QFile::exists(path(u"single"_s)));
    }

    void init()
    {
        m_library = std::make_unique<TestLibrary>();
        m_target = std::make_unique<QTemporaryDir>();
        m_opened.clear();
    }

    void batchLaysOutFoldersAndSizes()
    {
        using enum AspectRatio;
        Slideshow *const cats = slideshow({Qt::red, Qt::green}, square, u"Cats//Dogs"_s);
        Slideshow *const unnamed = slideshow({Qt::blue}, instagram, std::nullopt);
        Slideshow *const shapeless = slideshow({Qt::blue}, std::nullopt, u"Cats//Dogs"_s);
        QVERIFY(exportAll({cats, unnamed, shapeless}));
        const QStringList expected{
            u"Cats--Dogs/Slideshow_1/Slide_1.png"_s, u"Cats--Dogs/Slideshow_1/Slide_2.png"_s,
            u"Cats--Dogs/Slideshow_3/Slide_1.png"_s, u"Unknown Batch/Slideshow_2/Slide_1.png"_s};
        QCOMPARE(files(), expected);
        QCOMPARE(QImage(path(expected[0])).size(), QSize(240, 240));
        QCOMPARE(QImage(path(expected[2])).size(), QSize(2160, 3840));
        QCOMPARE(QImage(path(expected[3])).size(), QSize(960, 1200));
        QCOMPARE(m_opened, QStringList{m_target->path()});
    }

    void orderOfSlides()
    {
        Slideshow *const slides =
            slideshow({Qt::red, Qt::green, Qt::blue}, AspectRatio::square, u"B"_s, {2, 0, 1});
        QVERIFY(exportAll({slides}));
        QCOMPARE(colorOf(u"B/Slideshow_1/Slide_1.png"_s), QColor(Qt::green));
        QCOMPARE(colorOf(u"B/Slideshow_1/Slide_3.png"_s), QColor(Qt::red));

        BulkExporter single = exporter();
        QVERIFY(QCoro::waitFor(single.exportSlideshow(*slides, path(u"new/folder"_s))));
        QCOMPARE(colorOf(u"new/folder/Slide_1.png"_s), QColor(Qt::red));
        QCOMPARE(colorOf(u"new/folder/Slide_3.png"_s), QColor(Qt::blue));
        QCOMPARE(m_opened.last(), path(u"new/folder"_s));
    }

    void emptyBatchOnlyOpensTheFolder()
    {
        QVERIFY(exportAll({}));
        QVERIFY(files().isEmpty());
        QCOMPARE(m_opened, QStringList{m_target->path()});
    }

    void exportingAgainReplaces()
    {
        Slideshow *const slides = slideshow({Qt::red}, AspectRatio::square, u"B"_s);
        QVERIFY(exportAll({slides}));
        writeFile(path(u"B/Slideshow_1/Slide_2.png"_s), "kept");
        const QString picture = slides->slides().first()->imageURL().toLocalFile();
        QVERIFY(QFile::remove(picture) && QImage(300, 300, QImage::Format_RGB32).save(picture));
        QVERIFY(exportAll({slides}));
        QVERIFY(colorOf(u"B/Slideshow_1/Slide_1.png"_s) != QColor(Qt::red));
        QCOMPARE(readFile(path(u"B/Slideshow_1/Slide_2.png"_s)), "kept");
    }

    void missingPicturesGiveThePlaceholder()
    {
        Slideshow *const slides = slideshow({Qt::red, Qt::green}, AspectRatio::square, u"B"_s);
        QVERIFY(QFile::remove(slides->slides().first()->imageURL().toLocalFile()));
        BulkExporter bulk = exporter();
        const QSignalSpy missing(&bulk, &BulkExporter::pictureMissing);
        QVERIFY(QCoro::waitFor(bulk.exportSlideshows({slides}, m_target->path())));
        QCOMPARE(missing.size(), 1);
        QCOMPARE(missing[0][0].toString(), path(u"B/Slideshow_1/Slide_1.png"_s));
        QVERIFY(std::abs(colorOf(u"B/Slideshow_1/Slide_1.png"_s).alpha() - 64) <= 1);
        QCOMPARE(colorOf(u"B/Slideshow_1/Slide_2.png"_s), QColor(Qt::green));
    }

    void aFolderThatCannotBeMadeStopsABatch()
    {
        writeFile(path(u"Blocked"_s), {});
        QList<Slideshow *> slideshows;
        for (const QString &name : {u"Fine"_s, u"Blocked"_s, u"Never"_s})
            slideshows += slideshow({Qt::red}, AspectRatio::square, name);
        const Result<> result = exportAll(slideshows);
        QVERIFY(!result);
        QVERIFY(result.error().message.contains(u"Blocked"_s));
        QCOMPARE(files(), QStringList({u"Blocked"_s, u"Fine/Slideshow_1/Slide_1.png"_s}));
        QVERIFY(m_opened.isEmpty());
    }

    void everyNameHasAFolder()
    {
        const QString longName = u"漢"_s.repeated(100);
        const QStringList names{
            u""_s, u"."_s, u".."_s, u"a"_s + QChar(0) + u"b"_s, longName + u"1"_s, longName + u"2"_s};
        QList<Slideshow *> slideshows;
        for (const QString &name : names)
            slideshows += slideshow({Qt::red}, AspectRatio::square, name);
        QVERIFY(exportAll(slideshows));
        QSet<QString> folders;
        for (const QString &file : files()) {
            const QStringList parts = file.split(u'/');
            QCOMPARE(parts.size(), 3);
            folders.insert(parts.first());
        }
        QCOMPARE(folders.size(), names.size());
        QVERIFY(folders.contains(u"Unnamed Batch"_s) && folders.contains(u"_.."_s) &&
                folders.contains(u"a-b"_s));
    }

    void aFileThatCannotBeWritten()
    {
        // A folder of the file's name stands in the way.
        Slideshow *const slides = slideshow({Qt::red, Qt::green, Qt::blue}, AspectRatio::square, u"B"_s);
        QVERIFY(QDir(m_target->path()).mkpath(u"B/Slideshow_1/Slide_2.png"_s));
        BulkExporter bulk = exporter();
        const QSignalSpy leftOut(&bulk, &BulkExporter::fileLeftOut);
        const QSignalSpy progress(&bulk, &BulkExporter::progressed);
        QVERIFY(QCoro::waitFor(bulk.exportSlideshows({slides}, m_target->path())));
        QCOMPARE(files(), QStringList({u"B/Slideshow_1/Slide_1.png"_s, u"B/Slideshow_1/Slide_3.png"_s}));
        QCOMPARE(leftOut.size(), 1);
        QVERIFY(leftOut[0][0].toString().contains(u"Slide_2.png"_s));
        QCOMPARE(progress.last(), QVariantList({2, 1, 3}));
        m_opened.clear();

        QVERIFY(QDir(m_target->path()).mkpath(u"single/Slide_2.png"_s));
        BulkExporter single = exporter();
        const Result<> result = QCoro::waitFor(single.exportSlideshow(*slides, path(u"single"_s)));
        QVERIFY(!result);
        QVERIFY(QFile::exists(path(u"single/Slide_1.png"_s)));
        QVERIFY(!QFile::exists(path(u"single/Slide_3.png"_s)));
        QVERIFY(m_opened.isEmpty());
    }

    void yieldsBeforeEachSlideshow()
    {
        const QList<Slideshow *> slideshows{slideshow({Qt::red, Qt::green}, AspectRatio::square, u"B"_s),
                                            slideshow({Qt::red}, AspectRatio::square, u"B"_s),
                                            slideshow({Qt::blue}, AspectRatio::square, u"B"_s)};
        BulkExporter bulk = exporter();
        QStringList happened;
        QList<std::pair<int, int>> progress;
        connect(&bulk, &BulkExporter::progressed, &bulk, [&](int done, int, int total) {
            happened.append(QString::number(done));
            progress.append({done, total});
            // The event loop gets this before the next slideshow, and only then.
            const auto event = [&, done] {
                happened.append(u"event"_s);
                if (done == 2)
                    m_library->store().remove(slideshows[1]);
            };
            QMetaObject::invokeMethod(&bulk, event, Qt::QueuedConnection);
        });
        QVERIFY(QCoro::waitFor(bulk.exportSlideshows(slideshows, m_target->path())));
        QCOMPARE(happened.mid(0, 4), QStringList({u"1"_s, u"2"_s, u"event"_s, u"event"_s}));
        QCOMPARE(progress, (QList<std::pair<int, int>>{{1, 4}, {2, 4}, {3, 3}}));
        // The removed slideshow left its number free.
        QVERIFY(!QFile::exists(path(u"B/Slideshow_2/Slide_1.png"_s)));
        QCOMPARE(colorOf(u"B/Slideshow_3/Slide_1.png"_s), QColor(Qt::blue));
    }

    void manyThreadsGiveTheSamePictures()
    {
        Slideshow *const slides =
            slideshow({Qt::red, Qt::green, Qt::blue, Qt::cyan, Qt::gray}, AspectRatio::instagram, u"B"_s);
        for (Slide *slide : slides->slides())
            slide->setText(u"Slide %1"_s.arg(slide->order()));
        for (const int threads : {1, 4})
            QVERIFY(QCoro::waitFor(
                BulkExporter({}, threads).exportSlideshow(*slides, path(QString::number(threads)))));
        for (int i = 1; i <= 5; ++i) {
            const QByteArray one = readFile(path(u"1/Slide_%1.png"_s.arg(i)));
            QVERIFY(one.size() > 100);
            QCOMPARE(one, readFile(path(u"4/Slide_%1.png"_s.arg(i))));
        }
    }

    void suggestsANameForTheFolder()
    {
        QCOMPARE(suggestedFolderName(QDateTime(QDate(2025, 3, 3), QTime(14, 5, 9))),
                 u"Slideshow_2025-03-03_14-05-09"_s);
    }
};

QTEST_MAIN(TestBulkExporter)
#include "tst_bulk_exporter.moc"
