#include "picture_samples.h"
#include "render/picture/decoding_share.h"
#include "render/picture/picture_loader.h"
#include "tests/table.h"

#include <QtConcurrent/QtConcurrent>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>

#include <sys/resource.h>
#include <sys/stat.h>
#include <time.h>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>
#include <vector>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

namespace {

QList<std::pair<const char *, QByteArray>> files()
{
    const QImage image = painting(72, 50);
    const QImage clear = image.convertToFormat(QImage::Format_ARGB32);
    return {{"JPEG", jpegWithOrientation(jpeg(image, {.subsamplingAcross = 2, .subsamplingDown = 2}), 6)},
            {"JPEG, progressive", jpeg(image, {.progressive = true})},
            {"JPEG, CMYK", jpeg(image, {.colors = JpegColors::Cmyk})},
            {"PNG", pngWithOrientation(encoded(clear, "png"), 6)},
            {"WebP", webpWithOrientation(encoded(clear, "webp", 100), 6)},
            {"GIF", gif()},
            {"BMP", encoded(image, "bmp")},
            {"TIFF", encoded(image, "tiff")},
            {"HEIC", heif(image, {.orientation = heif_orientation_rotate_90_cw})},
            {"HEIC, alpha", heif(clear)},
            {"AVIF", heif(image, {.codec = heif_compression_AV1})}};
}

/// Peak memory so far of this process, or of the largest of those it has waited for, in MB.
long peakMegabytes(__rusage_who who)
{
    rusage usage{};
    getrusage(who, &usage);
    return usage.ru_maxrss / 1024;
}

/// One of three that make the decoders work differently.
PictureRequest anyRequest(size_t i)
{
    const PictureRequest requests[]{{}, {{20, 30}, true}, {{4, 5}, true}};
    return requests[i % std::size(requests)];
}

QByteArray patched(QByteArray file, qsizetype at, const QByteArray &bytes)
{
    return file.replace(at, bytes.size(), bytes);
}

} // namespace

class PictureHostileTest : public QObject
{
    Q_OBJECT

private slots:
    void refusesWhatIsNoPicture_data()
    {
        const auto row = table<QByteArray, QString>({"bytes", "message"});
        const QString unknown = u"The file is not a JPEG, PNG, WebP, GIF, BMP, TIFF, HEIC or AVIF picture."_s;
        row("nothing", ""_ba, u"The picture file is empty."_s);
        row("one byte", "\xff"_ba, unknown);
        row("text", "All the leaves are brown"_ba, unknown);
        row("SVG", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"_ba, unknown);
        row("XPM", encoded(painting(8, 8), "xpm"), unknown);
        row("ICO", encoded(painting(8, 8), "ico"), unknown);
        row("film", QByteArray::fromHex("00000018") + "ftypisom" + QByteArray("\0\0\2\0isomiso2", 12),
            unknown);
        row("sound", QByteArray("RIFF\x10\0\0\0WAVEfmt \0\0\0\0", 20), unknown);
        row("PNG signature alone", "\x89PNG\r\n\x1a\n"_ba, u"The picture is damaged."_s);
        row("JPEG start alone", "\xff\xd8\xff"_ba, u"The picture is damaged."_s);
    }

    void refusesWhatIsNoPicture()
    {
        QFETCH(QByteArray, bytes);
        const auto picture = decodePicture(bytes, {});
        QVERIFY(!picture);
        QTEST(picture.error().message, "message");
    }

    void refusesPathsThatAreNoFiles()
    {
        QTemporaryDir folder;
        const QString pipe = folder.filePath(u"pipe.jpg"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const std::pair<QString, QString> cases[]{
            {folder.filePath(u"none.jpg"_s), u"The picture file is missing."_s},
            {folder.path(), u"This is not a picture file."_s},
            {pipe, u"This is not a picture file."_s},
            {u"/dev/zero"_s, u"This is not a picture file."_s}};
        for (const auto &[path, message] : cases) {
            QCOMPARE(reason(loadPicture(path, {})), message.toUtf8());
            QVERIFY(!readPictureInfo(path));
        }
    }

    void refusesAbsurdSizes_data()
    {
        const auto row = table<QByteArray>({"file"});
        const QImage image = painting(72, 50);
        const QByteArray huge("\xea\x60\xea\x60", 4); // 60,000 twice
        const QByteArray png = encoded(image, "png");
        QByteArray header = patched(png.sliced(12, 17), 4, QByteArray("\0\0\xea\x60\0\0\xea\x60", 8));
        row("PNG", png.first(8) + pngChunk(header) + png.sliced(8 + 25));
        const QByteArray plain = jpeg(image);
        const auto frame = plain.indexOf("\xff\xc0");
        row("JPEG", patched(plain, frame + 5, huge));
        row("JPEG, size allowed", patched(plain, frame + 5, QByteArray("\x0b\xb8\xea\x60", 4)));
        const QByteArray fine = jpeg(image, {.progressive = true});
        row("JPEG, progressive, size allowed",
            patched(fine, fine.indexOf("\xff\xc2") + 5, QByteArray("\x0b\xb8\xea\x60", 4)));
        row("GIF", patched(patched(gif(), 6, "\xff\xff\xff\xff"_ba), 30, "\xff\xff\xff\xff"_ba));
        row("BMP", patched(encoded(image, "bmp"), 18, QByteArray("\x60\xea\0\0\x60\xea\0\0", 8)));
        QByteArray tiff = encoded(image, "tiff");
        for (const char tag : {'\0', '\1'}) {
            const auto entry = tiff.indexOf(QByteArray(1, tag) + "\x01"_ba, 8);
            tiff = patched(tiff, entry + 2, QByteArray("\x04\0\x01\0\0\0\x60\xea\0\0", 10));
        }
        row("TIFF", tiff);
        row("WebP", QByteArray("RIFF\x16\0\0\0WEBPVP8X\x0a\0\0\0\0\0\0\0\xff\xff\xff\xff\xff\xff", 30));
        QByteArray heic = heif(image);
        for (auto at = heic.indexOf("ispe"); at >= 0; at = heic.indexOf("ispe", at + 1))
            heic = patched(heic, at + 8, QByteArray("\0\0\xea\x60\0\0\xea\x60", 8));
        row("HEIC", heic);
        const QByteArray tile = heif(painting(512, 512));
        row("HEIC grid, another size told", heifGrid(tile, 8, {4'096, 4'096}, {100, 100}));
#ifndef __SANITIZE_ADDRESS__ // whose own memory leaves no room for a limit
        row("HEIC grid, four times the pixels told", heifGrid(tile, 44, {22'528, 22'528}, {11'264, 11'264}));
        row("HEIC grid, beyond 32 bits", heifGrid(tile, 80, {40'960, 40'960}, {100, 100}));
#endif
    }

    void refusesAbsurdSizes()
    {
        QFETCH(QByteArray, file);
        const long before = peakMegabytes(RUSAGE_SELF);
        for (const PictureRequest &request : {PictureRequest{}, PictureRequest{{100, 100}, true}}) {
            const auto picture = decodePicture(file, request);
            QVERIFY(!picture);
            QVERIFY2(picture.error().message.contains(u"he picture"), reason(picture));
        }
        QCOMPARE_LE(peakMegabytes(RUSAGE_SELF) - before, 32);
#ifndef __SANITIZE_ADDRESS__
        QCOMPARE_LE(peakMegabytes(RUSAGE_CHILDREN), 600);
#endif
    }

    void refusesHalfPictures()
    {
        const QImage image = painting(200, 150);
        QImage indexed = image.convertToFormat(QImage::Format_Indexed8);
        const QByteArray clear = QByteArray("\x21\xf9\x04\0\0\0\0\0", 8);
        const std::pair<const char *, QByteArray> cases[]{{"jpeg", encoded(image, "jpeg")},
                                                          {"png", encoded(image, "png")},
                                                          {"webp", encoded(image, "webp", 100)},
                                                          {"tiff", encoded(image, "tiff")},
                                                          {"bmp", encoded(image, "bmp")},
                                                          {"bmp of 256 colours", encoded(indexed, "bmp")},
                                                          {"gif", gif()},
                                                          {"gif, extended", gif().insert(25, clear)},
                                                          {"heic", heif(image)}};
        for (const auto &[name, file] : cases) {
            const qsizetype end = QByteArray(name).startsWith("gif") ? file.indexOf('\x2c', 40) : file.size();
            for (const PictureRequest &request : {PictureRequest{}, PictureRequest{{16, 16}, false}}) {
                QVERIFY2(decodePicture(file.first(end), request), name);
                for (const double part : {0.3, 0.5, 0.8})
                    QVERIFY2(!decodePicture(file.first(qsizetype(double(end) * part)), request), name);
            }
        }
    }

    void survivesCutFiles_data()
    {
        const auto row = table<QByteArray, int>({"file", "trials"});
        for (const auto &[name, file] : files()) {
            const bool startsProgram = file[0] != char(0xFF) && file[1] != 'P'; // for all but JPEG and PNG
            row(name, file, startsProgram ? 40 : 300);
        }
    }

    void survivesCutFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, trials);
        QVERIFY2(decodePicture(file, {}), reason(decodePicture(file, {})));
        const qsizetype step = std::max<qsizetype>(1, file.size() / trials);
        for (qsizetype size = 0; size < file.size(); size += size < 200 ? 300 / trials : step) {
            const auto picture = decodePicture(file.first(size), anyRequest(size_t(size)));
            QVERIFY(picture ? !picture->image.isNull() : !picture.error().message.isEmpty());
            QVERIFY(!picture || size > 32);
        }
    }

    void survivesBrokenFiles_data()
    {
        survivesCutFiles_data();
    }

    void survivesBrokenFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, trials);
        std::mt19937 random(1);
        const auto below = [&](qsizetype limit) { return qsizetype(random() % size_t(limit)); };
        const int rounds = qEnvironmentVariableIsSet("PICTURE_FUZZ_ROUNDS")
                               ? qEnvironmentVariableIntValue("PICTURE_FUZZ_ROUNDS")
                               : trials;
        for (int round = 0; round < rounds; ++round) {
            QByteArray broken = file;
            for (qsizetype change = 0; change <= below(6); ++change) {
                // Headers are where it matters: half of the changes fall into the first 200 bytes.
                const auto at = below(random() % 2 ? std::min<qsizetype>(200, file.size()) : file.size());
                switch (random() % 4) {
                case 0:
                    broken[at] = char(random());
                    break;
                case 1:
                    broken[at] = char(broken[at] ^ 1 << random() % 8);
                    break;
                case 2:
                    broken.replace(at, 2, random() % 2 ? "\xff\xff" : QByteArray(2, '\0'));
                    break;
                default:
                    broken.remove(at, below(20));
                }
                if (broken.size() < file.size())
                    broken.resize(file.size(), '\0');
            }
            const auto picture = decodePicture(broken, anyRequest(random()));
            QVERIFY(picture ? !picture->image.isNull() : !picture.error().message.isEmpty());
        }
    }

    void passesOverTexts()
    {
        const QByteArray text =
            "zTXtnote"_ba + QByteArray(2, '\0') + qCompress(QByteArray(64 << 20, 'a')).sliced(4);
        const QByteArray png = encoded(painting(72, 50), "png"),
                         file = png.first(33) + pngChunk(text).repeated(50) + png.sliced(33);
        const auto processorTime = [] {
            timespec time{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
            return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
        };
        const double before = processorTime();
        QVERIFY(decodePicture(file, {}));
        QCOMPARE_LE(processorTime() - before, 0.3); // 3 GB of text take seconds
    }

    void decodersShareTheirMemory()
    {
        std::atomic<qint64> held = 0, most = 0;
        const auto hold = [&](qint64 bytes) {
            const DecodingShare share(bytes);
            const qint64 now = held += std::min(bytes, decodingMemory);
            for (qint64 before = most; before < now && !most.compare_exchange_weak(before, now);) {
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            held -= std::min(bytes, decodingMemory);
        };
        std::vector<std::jthread> threads;
        for (int i = 0; i < 16; ++i)
            threads.emplace_back([&hold, i] {
                for (int round = 0; round < 5; ++round)
                    hold(i == 0 ? mostDecodingMemory : qint64(i) << 24);
            });
        threads.clear();
        QCOMPARE(most.load(), decodingMemory); // which the largest ask for
    }

    /// The last, since it takes more memory than any before. What the programs hold together is bounded by
    /// their shares, each of them by the system.
    void manyLargePicturesAreBounded()
    {
#ifndef __SANITIZE_ADDRESS__
        const QByteArray side = QByteArray::fromHex("2823"); // 9,000
        const QByteArray animation = patched(patched(gif(), 6, side + side), 30, side + side);
        QImage large(6'000, 6'000, QImage::Format_RGB32);
        large.fill(Qt::darkGreen);
        const QByteArrayList hostile{animation, jpeg(large, {.progressive = true}), encoded(large, "png"),
                                     encoded(large, "webp", 100)};
        large = {};
        const QByteArrayList files = hostile + hostile + hostile + hostile;
        QThreadPool pool;
        pool.setMaxThreadCount(16);
        const auto loaded = QtConcurrent::blockingMapped(&pool, files, [](const QByteArray &file) {
            return reason(decodePicture(file, {{300, 300}, true}));
        });
        for (const QByteArray &wrong : loaded)
            QCOMPARE(wrong, QByteArray());
        QCOMPARE_LE(peakMegabytes(RUSAGE_SELF), 600);
        QCOMPARE_LE(peakMegabytes(RUSAGE_CHILDREN), 600);
#endif
    }
};

QTEST_GUILESS_MAIN(PictureHostileTest)
#include "tst_picture_hostile.moc"
