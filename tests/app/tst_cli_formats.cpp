#include "tests/app/tool.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

/// What slides are written as: other pictures than PNG, archives, documents and films.
class CliFormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_tool = std::make_unique<Tool>(); }

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

private:
    std::unique_ptr<Tool> m_tool;
};

QTEST_GUILESS_MAIN(CliFormatsTest)
#include "tst_cli_formats.moc"
