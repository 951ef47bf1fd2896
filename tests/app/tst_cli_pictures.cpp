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

    void tablesAreMade()
    {
        m_tool->writePicture(u"pictures/a.png"_s, Qt::red);
        m_tool->writePicture(u"pictures/b.png"_s, Qt::green);
        m_tool->write(u"t.csv"_s,
                      "text 1;text 2;image "
                      "1;shape;caption;batch\n1;;b;;;\n2;x;a.png;1:1;;\n;;;\n3;;c;\n;;a;\n4;;a;;Four;C\n");
        const Outcome made =
            m_tool->run(u"make --images pictures --table t.csv --out . --batch-name B --shape 4:5"_s);
        QCOMPARE(made.status, 1);
        QVERIFY2(made.error().contains(u"row 4: there is no picture “c”"_s) &&
                     made.error().contains(u"row 5: no text\n"_s) &&
                     made.error().contains(u"2 of 5 rows could not be used"_s),
                 made.all());
        QCOMPARE(m_tool->files(u"B"_s).size(), 3);
        QCOMPARE(m_tool->read(u"C/Slideshow_1/caption.txt"_s), "Four\n");
        // The first row is the newest's turn: the last of the folders.
        const QImage second(m_tool->path(u"B/Slideshow_1/Slide_1.png"_s));
        const QImage first(m_tool->path(u"B/Slideshow_2/Slide_1.png"_s));
        QCOMPARE(second.pixelColor(second.width() / 2, 200), QColor(Qt::red));
        QCOMPARE(first.pixelColor(first.width() / 2, 200), QColor(Qt::green));
        QCOMPARE(second.width(), second.height());
        QVERIFY(first.width() < first.height());

        const Outcome checked = m_tool->run(u"table check t.csv --json --rows 1,5"_s);
        QCOMPARE(checked.status, 1);
        QCOMPARE(checked.json()[u"slideshows"_s], 1);
        QCOMPARE(checked.json()[u"problems"_s].toArray().size(), 1);
        const Outcome filled = m_tool->run(u"table check t.csv --content -"_s, "{{image 1}} {{shape|9:16}}");
        QVERIFY2(filled.succeeded(), filled.all());
        QVERIFY(filled.out.startsWith("5 slideshows, 0 rows left out\n"));
        QVERIFY(m_tool->run(u"table check t.csv --content -"_s, "{{city}}").failed(1, u"“{{city}}”"_s));
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
