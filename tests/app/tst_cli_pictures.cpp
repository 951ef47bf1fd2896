#include "tests/app/tool.h"
#include "tests/table.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

/// Drawing without a library: render and make.
class CliPicturesTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_tool = std::make_unique<Tool>(); }

    void oneFile()
    {
        m_tool->writePicture(u"in.jpg"_s, Qt::blue);
        const Outcome outcome =
            m_tool->run(u"render --text -x --size 60x40.5 --pixel-ratio 1.5 --text-pos -5,-5 "
                        "--out out\u202F1.png in.jpg"_s);
        QVERIFY2(outcome.succeeded(), outcome.all());
        QCOMPARE(outcome.lines(), QStringList{u"out\u202F1.png"_s});
        const QImage png(m_tool->path(u"out\u202F1.png"_s));
        QCOMPARE(png.size(), QSize(90, 61));
        QVERIFY(png.pixelColor(45, 30).blue() > 250); // the text lies outside
    }

    void textsAreDrawn()
    {
        m_tool->writePicture(u"in.png"_s, Qt::blue);
        const auto draw = [&](const QString &options) {
            const Outcome outcome =
                m_tool->run(u"render --shape 1:1 --out out.png in.png --text M "_s + options);
            return outcome.succeeded() ? QImage(m_tool->path(u"out.png"_s)) : QImage();
        };
        const auto count = [](const QImage &image, QRgb color, const QRect &area) {
            int pixels = 0;
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    pixels += image.pixel(x, y) == color;
            return pixels;
        };
        QVERIFY(!draw(u"--subtitle नमस्ते"_s).isNull());
        const QRect upper(0, 0, 240, 120);
        const QRect lower(0, 120, 240, 120);
        const QImage boxed = draw(u"--style boxed --box-color #ff0000 --text-pos 0.5,0.25"_s);
        QVERIFY(count(boxed, qRgb(255, 0, 0), upper) > 100);
        QCOMPARE(count(boxed, qRgb(255, 0, 0), lower), 0);
        const QImage both = draw(u"--subtitle S --subtitle-pos 0.5,0.75 --style boxed --text-pos 0.5,0.25"_s);
        QVERIFY(count(both, qRgb(255, 255, 255), upper) > 100);
        QVERIFY(count(both, qRgb(255, 255, 255), lower) > 100);
    }

    void severalFiles()
    {
        for (const QString &pictures : {u"a.png b.png"_s, u"."_s}) {
            const Outcome misused = m_tool->run(u"render --text t --out out.png "_s + pictures);
            QVERIFY2(misused.failed(2, u"--out: expected a folder"_s), misused.all());
            QVERIFY(m_tool->files(u"."_s).isEmpty());
        }

        m_tool->writePicture(u"a/photo.jpg"_s, Qt::red);
        m_tool->writePicture(u"b/Photo.png"_s, Qt::green);
        m_tool->writePicture(u"out/photo-2.png"_s, Qt::blue);
        const QByteArray input = m_tool->read(u"out/photo-2.png"_s);
        m_tool->write(u"b/broken.png"_s, m_tool->read(u"b/Photo.png"_s).first(40));
        const Outcome outcome =
            m_tool->run({u"render"_s, u"--text"_s, u""_s, u"--shape"_s, u"1:1"_s, u"--out"_s, u"out"_s,
                         u"a/photo.jpg"_s, u"b"_s, u"missing.png"_s, u"out/photo-2.png"_s});
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.lines(),
                 QStringList({u"out/photo.png"_s, u"out/Photo-2.png"_s, u"out/photo-2-2.png"_s}));
        QCOMPARE(m_tool->read(u"out/photo-2.png"_s), input);
        QCOMPARE(color(u"out/photo.png"_s).red(), 254);
        QCOMPARE(color(u"out/Photo-2.png"_s), QColor(Qt::green));
        QCOMPARE(color(u"out/photo-2-2.png"_s), QColor(Qt::blue));
        QVERIFY(!QFile::exists(m_tool->path(u"out/broken.png"_s)));
        for (const char *const reported : {"b/broken.png: ", "missing.png: ", "“out/Photo-2.png”"})
            QVERIFY2(outcome.err.contains(reported), outcome.err.constData());
        QVERIFY2(outcome.err.endsWith("\nmosslantern-cli: 2 of 5 pictures were not drawn\n"),
                 outcome.err.constData());
    }

    void aPictureIsNeverReplaced()
    {
        m_tool->writePicture(u"photo.png"_s, Qt::red);
        const QByteArray input = m_tool->read(u"photo.png"_s);
        const QString common = u"render --text t --shape 1:1 photo.png --out "_s;
        QCOMPARE(m_tool->run(common + u"./photo.png"_s).status, 1);
        QCOMPARE(m_tool->run(common + u"."_s).lines(), QStringList{u"./photo-2.png"_s});
        QCOMPARE(m_tool->read(u"photo.png"_s), input);
    }

    void makingInOneGo()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        m_tool->writePicture(u"pictures/b.png"_s, Qt::green);
        const QString line = u"make --images pictures --content - --out out --count 2 --shape 1:1 "
                             "--batch-name B --seed 3"_s;
        const Outcome outcome = m_tool->run(line, "one\ntwo\n");
        QVERIFY2(outcome.succeeded(), outcome.all());
        QCOMPARE(outcome.lines(), QStringList{m_tool->path(u"out/B"_s)});
        QCOMPARE(m_tool->files(u"."_s),
                 QStringList({u"out/B/Slideshow_1/Slide_1.png"_s, u"out/B/Slideshow_1/Slide_2.png"_s,
                              u"out/B/Slideshow_2/Slide_1.png"_s, u"out/B/Slideshow_2/Slide_2.png"_s,
                              u"pictures/a.png"_s, u"pictures/b.png"_s}));

        m_tool->write(u"pictures/broken.jpg"_s, "broken");
        const Outcome some = m_tool->run(
            u"make --images pictures --content - --out some --count 40 --shape 1:1 --seed 3 --batch-name B"_s,
            "one\n");
        QCOMPARE(some.status, 1);
        QVERIFY(some.error().contains(u"pictures/broken.jpg: "_s));
        QVERIFY(some.err.endsWith("\nmosslantern-cli: 1 of 3 pictures could not be read\n"));
        QCOMPARE(m_tool->files(u"some"_s).size(), 40);
        QVERIFY(QDir(m_tool->path(u"."_s)).mkpath(u"empty"_s));
        const Outcome nothing = m_tool->run(u"make --images empty --content - --out out2"_s, "one");
        QVERIFY2(nothing.failed(1, u"no pictures in “empty”"_s), nothing.all());
        QVERIFY(m_tool->files(u"out2"_s).isEmpty());
    }

    void otherFormatsAndSizes()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        const QString render = u"render --text t pictures/a.png "_s;
        QVERIFY(m_tool->run(render + u"--width 90 --out a.jpeg"_s).succeeded());
        QVERIFY(m_tool->read(u"a.jpeg"_s).startsWith("\xFF\xD8"));
        QCOMPARE(QImage(m_tool->path(u"a.jpeg"_s)).size(), QSize(90, 160));
        QVERIFY(m_tool->run(render + u"--shape 4:5 --width 100 --format webp --out ."_s).succeeded());
        QCOMPARE(QImage(m_tool->path(u"a.webp"_s)).size(), QSize(100, 125));
        for (const auto &[options, problem] :
             {std::pair(u"--format jpeg --out a.png"_s, u"--out: expected a name that ends with .jpg"_s),
              {u"--width 90 --pixel-ratio 2 --out a.png"_s, u"either --width or --pixel-ratio"_s},
              {u"--max-bytes 8G --out a.png"_s, u"--max-bytes: expected a number of bytes"_s}}) {
            const Outcome misused = m_tool->run(render + options);
            QVERIFY2(misused.failed(2, problem), misused.all());
        }
        const Outcome made = m_tool->run(u"make --images pictures --content - --out . --batch-name B --shape "
                                         "1:1 --format jpeg --max-bytes 20K"_s,
                                         "one\ntwo\n");
        QVERIFY2(made.succeeded(), made.all());
        QCOMPARE(m_tool->files(u"B"_s),
                 QStringList({u"Slideshow_1/Slide_1.jpg"_s, u"Slideshow_1/Slide_2.jpg"_s}));
    }

    void forAPlatform()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        const QString make =
            u"make --images pictures --content - --out . --batch-name B --for pinterest --zip "_s;
        const QByteArray texts = "1\n2\n";
        const Outcome unsuitable = m_tool->run(make, texts);
        QVERIFY2(unsuitable.failed(1, u"Pinterest does not take slides of the shape 9:16."_s),
                 unsuitable.all());
        QCOMPARE(m_tool->files(u"."_s), QStringList{u"pictures/a.png"_s});

        const Outcome made = m_tool->run(make + u"--fit"_s, texts);
        QVERIFY2(made.succeeded(), made.all());
        QCOMPARE(made.lines(), QStringList{m_tool->path(u"B.zip"_s)});
        // Read by what is on every system that builds this.
        const Outcome listed = m_tool->runShell(u"cmake -E tar xf B.zip && rm -r pictures"_s);
        QVERIFY2(listed.succeeded(), listed.all());
        QCOMPARE(m_tool->files(u"."_s),
                 QStringList({u"B.zip"_s, u"Slideshow_1/Slide_01.jpg"_s, u"Slideshow_1/Slide_02.jpg"_s}));
        QCOMPARE(QImage(m_tool->path(u"Slideshow_1/Slide_02.jpg"_s)).size(), QSize(1000, 1500));
    }

    void films()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        m_tool->write(u"bin/ffmpeg"_s, "#!/bin/sh\nfor last; do :; done\necho \"$@\" > arguments\n"
                                       "cat > /dev/null; echo film > \"${last#file:}\"\n");
        QVERIFY(QFile::setPermissions(m_tool->path(u"bin/ffmpeg"_s), QFile::ReadOwner | QFile::ExeOwner));
        m_tool->setVariable(u"PATH"_s, m_tool->path(u"bin"_s) + u":/usr/bin:/bin"_s);
        const QString make = u"make --images pictures --content - --out . --batch-name B --for reels "_s;
        const Outcome made = m_tool->run(make + u"--seconds 0.5 --fps 20 --music bin/ffmpeg"_s, "1\n2");
        QVERIFY2(made.succeeded(), made.all());
        QCOMPARE(m_tool->files(u"B"_s), QStringList{u"Slideshow_1.mp4"_s});
        const QByteArray arguments = m_tool->read(u"arguments"_s);
        for (const char *const part :
             {"-s 1080x1920 -r 20 ", "-stream_loop -1 -i file:", "libx264", "-t 1.000 "})
            QVERIFY2(arguments.contains(part), arguments.constData());
        for (const auto &[options, problem] :
             {std::pair(u"--zip"_s, u"expected one of --film, --zip and --pdf"_s),
              {u"--music none.mp3"_s, u"is no file"_s}}) {
            const Outcome misused = m_tool->run(make + options, "1");
            QVERIFY2(misused.failed(2, problem), misused.all());
        }
        const Outcome unasked = m_tool->run(u"make --images pictures --content - --out . --seconds 2"_s, "1");
        QVERIFY2(unasked.failed(2, u"expected --film with --seconds"_s), unasked.all());
    }

    void documents()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        const QString make = u"make --images pictures --content - --out . --batch-name B --shape 4:5 "_s;
        const Outcome refused = m_tool->run(make + u"--pdf --format webp"_s, "1\n2");
        QVERIFY2(refused.failed(2, u"expected --format jpeg"_s), refused.all());
        QVERIFY(m_tool->run(make + u"--for linkedin --count 2"_s, "1\n2").succeeded());
        QCOMPARE(m_tool->files(u"B"_s), QStringList({u"Slideshow_1.pdf"_s, u"Slideshow_2.pdf"_s}));
        // The pictures are in it as they are.
        QVERIFY(m_tool->run(make + u"--for linkedin --format jpeg --zip"_s, "1\n2").succeeded());
        const QByteArray pdf = m_tool->read(u"B/Slideshow_1.pdf"_s);
        QVERIFY(m_tool->read(u"B.zip"_s).contains(pdf));
        QCOMPARE(pdf.count("/Type /Page "), 2);
        QCOMPARE(pdf.count("/MediaBox [ 0 0 1080 1350 ]"), 2);
        const qsizetype table = pdf.lastIndexOf("xref\n0 10\n", pdf.lastIndexOf("startxref") - 1);
        QCOMPARE(pdf.mid(pdf.lastIndexOf("startxref\n") + 10).split('\n').first().toLongLong(), table);
        for (int number = 1; number < 10; ++number) {
            const qsizetype entry = table + 10 + 20 * number;
            const qsizetype at = pdf.mid(entry, 10).toLongLong();
            QVERIFY(pdf.mid(at).startsWith(QByteArray::number(number) + " 0 obj\n"));
        }
        const qsizetype picture = pdf.indexOf("\xFF\xD8\xFF");
        const QImage page = QImage::fromData(pdf.mid(picture, pdf.indexOf("\nendstream", picture) - picture));
        QCOMPARE(page.size(), QSize(1080, 1350));
    }

    void onlyWhatIsDrawnIsRead()
    {
        m_tool->writePicture(u"pictures/red.jpg"_s, Qt::red);
        const QByteArray red = m_tool->read(u"pictures/red.jpg"_s);
        m_tool->write(u"pictures/cut.jpg"_s, red.first(red.indexOf("\xFF\xDA") + 20)); // a sound header
        m_tool->write(u"pictures/none.jpg"_s, "none");
        int clean = 0;
        for (int seed = 0; seed < 12; ++seed) {
            const Outcome made = m_tool->run(
                u"make --images pictures --content - --out out --shape 1:1 --batch-name B --seed %1"_s.arg(
                    seed),
                "one");
            QCOMPARE(color(u"out/B/Slideshow_1/Slide_1.png"_s).red(), 254);
            QCOMPARE(made.status, made.err.isEmpty() ? 0 : 1);
            QCOMPARE(made.lines().size(), 1);
            clean += made.err.isEmpty() ? 1 : 0;
        }
        QVERIFY2(clean > 0 && clean < 12, qPrintable(QString::number(clean)));
    }

    void interruptingLeavesNothingBehind_data()
    {
        const auto row = table<int>({"signal"});
        row("interrupt", SIGINT);
        row("terminate", SIGTERM);
    }

    void interruptingLeavesNothingBehind()
    {
        QFETCH(int, signal);
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        const auto process =
            m_tool->prepare(u"make --images pictures --content - --out out --count 200 --batch-name B"_s);
        process->start();
        process->write("a\nb\nc\nd\ne\n");
        process->closeWriteChannel();
        QTRY_VERIFY(QFile::exists(m_tool->path(u"out/B/Slideshow_1/Slide_1.png"_s)));
        ::kill(static_cast<pid_t>(process->processId()), signal);
        const Outcome outcome = Tool::finish(*process);
        QCOMPARE(outcome.status, 128 + signal);
        QVERIFY2(outcome.err.isEmpty(), outcome.err.constData());
        const QStringList files = m_tool->files(u"out"_s);
        QVERIFY(files.size() < 1000);
        for (const QString &file : files)
            QVERIFY2(file.startsWith(u"B/"_s) && !QImage(m_tool->path(u"out/"_s + file)).isNull(),
                     qPrintable(file));
    }

private:
    QColor color(const QString &name) const { return QImage(m_tool->path(name)).pixelColor(120, 20); }

    std::unique_ptr<Tool> m_tool;
};

QTEST_GUILESS_MAIN(CliPicturesTest)
#include "tst_cli_pictures.moc"
