#include "tests/app/tool.h"
#include "tests/table.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

/// Everything that works on a library.
class CliLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_tool = std::make_unique<Tool>(); }

    void preparedSlideshows()
    {
        importPictures({u"red.png"_s, u"green.png"_s});
        const QByteArray variations =
            R"([{"slides":[{"main":"A"},{"main":"B"}]}, {"slides":[{"main":"C"}]}])";
        const Outcome refused = run(u"generate --content -"_s, variations);
        QVERIFY2(refused.failed(1, u"--variations"_s), refused.all());
        const QJsonArray made = run(u"generate --json --variations -"_s, variations).json().array();
        QCOMPARE(made.size(), 2);
        QCOMPARE(made[0][u"slides"_s].toArray().size(), 2);
        QCOMPARE(made[1][u"slides"_s][0][u"text"_s], u"C"_s);
        QVERIFY(run(u"generate --content -"_s, "[1] is a line").succeeded());

        m_tool->writePicture(u"new.png"_s, Qt::blue);
        const Outcome table =
            run(u"generate --json --table -"_s,
                "main 1,image 1,main 2,image 2,style\nx,green.png,z,new.png,boxed\ny,none\nv,new.png\n");
        QVERIFY2(table.status == 1 && table.error().contains(u"row 2: "_s), table.all());
        const QJsonArray rows = table.json().array();
        QCOMPARE(rows.size(), 2);
        const QJsonArray assets = array(u"list assets --json"_s);
        QCOMPARE(assets.size(), 3); // a file is imported once
        QCOMPARE(rows[0][u"slides"_s][1][u"asset"_s], rows[1][u"slides"_s][0][u"asset"_s]);
        QCOMPARE(rows[0][u"slides"_s][0][u"boxColorHex"_s], u"FFFFFF"_s);
        QCOMPARE(rows[0][u"slides"_s][0][u"asset"_s], assets[1][u"id"_s]);
    }

    void tablesBringTheirPictures()
    {
        // Next to the table, whatever the working directory; and the library has none of its own.
        m_tool->writePicture(u"far/own.png"_s, Qt::blue);
        m_tool->write(u"far/t.csv"_s, "main 1,image 1,main 2,batch,caption\nA,own.png,,Mon,\"#a \"\"b\"\"\"\n"
                                      "B,own.png,x,,\nC,gone.png,,,\nD,own.png,,Mon,\n");
        const QString generate = u"generate --table far/t.csv --batch-name Rest"_s;
        QVERIFY(run(u"collections create None"_s).succeeded());
        const Outcome told = run(generate + u" --dry-run"_s);
        QVERIFY2(told.status == 1 && told.out == "2 slideshows, 2 rows left out\n", told.all());
        QVERIFY2(told.error().contains(u"row 2: slide 2 names no picture"_s) &&
                     told.error().contains(u"row 3: There is no picture “gone.png”."_s),
                 told.all());
        QVERIFY(array(u"list assets --json"_s).isEmpty());
        const QJsonArray made = run(generate + u" --json"_s).json().array();
        QCOMPARE(made.size(), 2);
        QCOMPARE(made[0][u"caption"_s], u"#a \"b\""_s);
        QVERIFY(made[1][u"caption"_s].isNull());
        QCOMPARE(made[0][u"batchId"_s], made[1][u"batchId"_s]);
        QCOMPARE(made[0][u"batchName"_s], u"Mon"_s);
        QCOMPARE(array(u"list assets --json"_s).size(), 1);
        QCOMPARE(run(u"generate --content - --dry-run"_s, "a").out, "1 slideshow, 0 rows left out\n");

        // Captions go out, and the index is a table of the same slideshows.
        QVERIFY(run(u"export --batch Mon --to out --index"_s).succeeded());
        QCOMPARE(m_tool->read(u"out/Mon/Slideshow_2/caption.txt"_s), "#a \"b\"\n");
        QVERIFY(!m_tool->files(u"out/Mon/Slideshow_1"_s).contains(u"caption.txt"_s));
        QCOMPARE(m_tool->read(u"out/Mon/index.csv"_s),
                 "\xEF\xBB\xBF"
                 "folder,slides,main 1,subtitle 1,image 1,caption\r\n"
                 "Slideshow_1,1,D,,own.png,\r\nSlideshow_2,1,A,,own.png,\"#a \"\"b\"\"\"\r\n");
        const QJsonArray again = run(u"generate --table out/Mon/index.csv --json"_s).json().array();
        QCOMPARE(again[1][u"caption"_s], made[0][u"caption"_s]);
        QCOMPARE(again[1][u"slides"_s][0][u"asset"_s], made[0][u"slides"_s][0][u"asset"_s]);
        QVERIFY(run(u"export --batch Mon --to out --pdf"_s).succeeded());
        QCOMPARE(m_tool->read(u"out/Mon/Slideshow_2.txt"_s), "#a \"b\"\n");
    }

    void fromPicturesToFiles()
    {
        m_tool->write(u"content.json"_s,
                      R"({"slides":[{"main":"One","subtitle":"Eins"},{"main":"Zwei 🎉"},{"main":"Three"}]})");
        const QJsonArray assets = importPictures({u"red.png"_s, u"green.png"_s, u"blue.png"_s});
        QCOMPARE(assets.size(), 3);
        QVERIFY(QFile::exists(assets[0][u"file"_s].toString()));
        QVERIFY(QDir::isAbsolutePath(assets[0][u"file"_s].toString()));

        const QString idOfGreen = assets[1][u"id"_s].toString();
        QCOMPARE(run(u"collections create Warm"_s).status, 0);
        QCOMPARE(run(u"collections add Warm red.png "_s + idOfGreen).status, 0);
        QCOMPARE(run(u"collections remove Warm red.png"_s).status, 0);
        QCOMPARE(array(u"collections list --json"_s)[0][u"assets"_s].toArray(), QJsonArray{idOfGreen});

        const QJsonArray made = array(u"generate --json --content content.json --count 2 --shape 1:1 --style "
                                      "boxed --collection Warm --batch-name Cats/Dogs --text-pos -0.25,0.5 "
                                      "--text-scale 1.5"_s);
        QCOMPARE(made.size(), 2);
        const QJsonObject slide = made[0][u"slides"_s][1].toObject();
        QCOMPARE(slide[u"text"_s], u"Zwei 🎉"_s);
        QCOMPARE(slide[u"textStyle"_s], u"boxed"_s);
        QCOMPARE(slide[u"boxColorHex"_s], u"FFFFFF"_s);
        QCOMPARE(slide[u"textX"_s], -0.25);
        QCOMPARE(slide[u"textScale"_s], 1.5);
        QCOMPARE(slide[u"asset"_s], idOfGreen);
        QCOMPARE(QColor(QImage(slide[u"image"_s].toString()).pixel(0, 0)), QColor(Qt::green));

        const QJsonArray batches = array(u"list batches --json"_s);
        QCOMPARE(batches.size(), 1);
        QCOMPARE(batches[0][u"name"_s], u"Cats/Dogs"_s);
        QCOMPARE(batches[0][u"slideshows"_s].toArray(), QJsonArray({made[1][u"id"_s], made[0][u"id"_s]}));

        const Outcome exported = run(u"export --batch Cats/Dogs --to out"_s);
        QCOMPARE(exported.status, 0);
        QCOMPARE(exported.lines(), QStringList{m_tool->path(u"out/Cats-Dogs"_s)});
        QStringList expected;
        for (const QString &slideshow : {u"Slideshow_1"_s, u"Slideshow_2"_s})
            for (int k = 1; k <= 3; ++k)
                expected.append(u"Cats-Dogs/%1/Slide_%2.png"_s.arg(slideshow).arg(k));
        QCOMPARE(m_tool->files(u"out"_s), expected);
        const QImage png(m_tool->path(u"out/"_s + expected[0]));
        QCOMPARE(png.size(), QSize(240, 240));
        QCOMPARE(png.pixelColor(230, 120), QColor(Qt::green));

        const QString start = made[0][u"id"_s].toString().left(13).toLower();
        QCOMPARE(run(u"export --to single --slideshow "_s + start).status, 0);
        QCOMPARE(m_tool->files(u"single"_s).size(), 3);

        QCOMPARE(run(u"sheet --batch Cats/Dogs --out sheet.png --cell 60"_s).lines(),
                 QStringList{u"sheet.png"_s});
        const QImage sheet(m_tool->path(u"sheet.png"_s));
        QCOMPARE(sheet.size(), QSize(24 + 3 * 60 + 2 * 12 + 24, 24 + 2 * (30 + 60) + 12 + 24));
        for (int k = 0; k < 6; ++k) {
            const QPoint upperLeft(24 + (60 + 12) * (k % 3), 24 + 30 + (30 + 60 + 12) * (k / 3));
            QCOMPARE(sheet.pixelColor(upperLeft + QPoint(57, 30)), QColor(Qt::green));
            QCOMPARE(sheet.pixelColor(upperLeft + QPoint(66, 30)), QColor(Qt::white));
        }
        QCOMPARE(run(u"sheet --batch Cats/Dogs --out sheet.pdf"_s).status, 0);
        QVERIFY(m_tool->read(u"sheet.pdf"_s).contains("/Count 1 "));
    }

    void importingKeepsWhatCanBeRead()
    {
        m_tool->writePicture(u"a.jpg"_s, Qt::red);
        m_tool->writePicture(u"folder/10.png"_s, Qt::red);
        m_tool->writePicture(u"folder/9.png"_s, Qt::red);
        m_tool->write(u"folder/notes.txt"_s, "no picture, and not called like one");
        m_tool->write(u"folder/broken.jpg"_s, "no picture");
        m_tool->writePicture(u"folder/half.bmp"_s, Qt::red);
        QVERIFY(QFile::resize(m_tool->path(u"folder/half.bmp"_s), 150'000));
        const Outcome outcome =
            run(u"import a.jpg missing.jpg folder - -- folder/notes.txt --library a.jpg"_s);
        QCOMPARE(outcome.status, 1);
        QStringList names;
        for (const QString &line : outcome.lines())
            names.append(line.section(u'\t', 1));
        QCOMPARE(names, QStringList({u"a.jpg"_s, u"9.png"_s, u"10.png"_s, u"a.jpg"_s}));
        for (const char *const reported :
             {"missing.jpg: ", "broken.jpg: ", "half.bmp: ", " -: ", "notes.txt: ", "--library: "})
            QVERIFY2(outcome.err.contains(reported), outcome.err.constData());
        QCOMPARE(outcome.err.count('\n'), 7);
        QVERIFY2(outcome.err.endsWith("\nmosslantern-cli: 6 of 10 files were left out\n"),
                 outcome.err.constData());
        QCOMPARE(array(u"list assets --json"_s).size(), 4);
    }

    void namesThatCannotBeUsedAreReported()
    {
        m_tool->writePicture(u"folder/a.png"_s, Qt::red);
        m_tool->writePicture(u"folder/b.png"_s, Qt::red);
        QVERIFY(QFile::link(u"nowhere"_s, m_tool->path(u"folder/link.JPG"_s)));
        QCOMPARE(::mkfifo(qPrintable(m_tool->path(u"folder/pipe.png"_s)), 0600), 0);
        QCOMPARE(::mkfifo(qPrintable(m_tool->path(u"folder/pipe"_s)), 0600), 0);
        QVERIFY(QDir(m_tool->path(u"folder"_s)).mkpath(u"folder.png"_s));
        // QTemporaryDir could not remove it.
        const QByteArray undecodable = m_tool->path(u"folder/b"_s).toUtf8() + "\xFF.png";
        QCOMPARE(::rename(qPrintable(m_tool->path(u"folder/b.png"_s)), undecodable.constData()), 0);
        const auto removal = qScopeGuard([&] { ::unlink(undecodable.constData()); });
        const Outcome outcome =
            m_tool->runShell(u"'%1' --library library import folder folder/b$'\\xFF'.png folder/a.png"_s);
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.lines().size(), 1); // which is named twice
        for (const QString &reported : {u"folder/link.JPG: "_s, u"folder/pipe.png: "_s})
            QVERIFY2(outcome.error().contains(reported), outcome.err.constData());
        QCOMPARE(outcome.error().count(u"folder/b\uFFFD.png: The name of the file is not UTF-8."_s), 2);
        QCOMPARE(outcome.err.count('\n'), 5);

        const Outcome unusable = m_tool->runShell(u"'%1' --library l$'\\xFF' list assets"_s);
        QCOMPARE(unusable.status, 2);
        QVERIFY2(unusable.error().contains(u"“l\uFFFD” is not UTF-8"_s), unusable.err.constData());
    }

    void aLibraryThatCannotBeSaved()
    {
        importPictures({u"a.png"_s});
        const Outcome outcome =
            m_tool->runShell(u"trap '' XFSZ; ulimit -f 64; echo text | '%1' --library library generate "
                             "--content - --count 1000"_s);
        QVERIFY2(outcome.failed(1, u"could not be saved"_s) && outcome.out.isEmpty(), outcome.all());
    }

    void theSeedChoosesThePictures()
    {
        QStringList names;
        for (int i = 0; i < 12; ++i)
            names.append(u"%1.png"_s.arg(i));
        importPictures(names);
        const auto choice = [&](const QString &options) {
            QStringList assets;
            const Outcome made =
                run(u"generate --json --content - --count 4 "_s + options, "a\nb\nc\nd\ne\n");
            for (const QJsonValue slideshow : made.json().array())
                for (const QJsonValue slide : slideshow[u"slides"_s].toArray())
                    assets.append(slide[u"asset"_s].toString());
            return assets;
        };
        const QStringList first = choice(u"--seed 18446744073709551615"_s);
        QCOMPARE(first.size(), 20);
        QCOMPARE(choice(u"--seed 18446744073709551615"_s), first);
        QVERIFY(choice(u"--seed 4294967295"_s) != first);
    }

    void nothingToMake_data()
    {
        const auto row = table<QString, QByteArray, QString>({"options", "content", "error"});
        row("no slides", u""_s, "{\"slides\":[]}", u"The content has no slides."_s);
        row("broken", u""_s, "{\"slides\":", u"The content cannot be used: parse error at line 1"_s);
        row("empty collection", u"--collection Empty"_s, "a",
            u"There are no pictures in the collection “Empty”"_s);
        row("no collection", u"--collection None"_s, "a", u"There is no collection “None”."_s);
        row("two collections", u"--collection Twin"_s, "a", u"2 collections are called “Twin”; give an id"_s);
    }

    void nothingToMake()
    {
        QFETCH(QString, options);
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        importPictures({u"a.png"_s});
        for (const QString &name : {u"Empty"_s, u"Twin"_s, u"Twin"_s})
            QCOMPARE(run(u"collections create "_s + name).status, 0);
        const Outcome outcome = run(u"generate --content - "_s + options, content);
        QCOMPARE(outcome.status, 1);
        QVERIFY2(outcome.error().contains(error), outcome.err.constData());
        QVERIFY(array(u"list slideshows --json"_s).isEmpty());
    }

    void deleting()
    {
        const QJsonArray assets = importPictures({u"a.png"_s, u"b.png"_s});
        // The first slideshow shows the asset's file, because its own copies cannot be made.
        m_tool->write(u"library/Slideshows"_s, "in the way");
        const Outcome dependent = run(u"generate --content - --batch-name Dependent"_s, "text");
        QCOMPARE(dependent.status, 1);
        QCOMPARE(dependent.lines().size(), 1);
        QVERIFY(dependent.err.startsWith("Failed to copy slide image: "));
        QVERIFY(dependent.err.endsWith("\nmosslantern-cli: 1 of 1 slides have no picture of their own\n"));
        const QJsonArray slideshows = array(u"list slideshows --json"_s);
        const QString dependentId = slideshows[0][u"id"_s].toString();
        const QString usedAsset = slideshows[0][u"slides"_s][0][u"asset"_s].toString();
        QVERIFY(QFile::remove(m_tool->path(u"library/Slideshows"_s)));
        QCOMPARE(run(u"generate --content - --batch-name Kept"_s, "text").status, 0);

        const Outcome deleted = run(u"delete asset %1 nothing"_s.arg(usedAsset));
        QCOMPARE(deleted.status, 1);
        QVERIFY(deleted.error().startsWith(u"Deleting dependent slideshow: "_s + dependentId));
        QVERIFY(deleted.error().contains(u"There is no asset “nothing”."_s));
        QVERIFY(deleted.err.endsWith("\nmosslantern-cli: 1 of 2 could not be deleted\n"));
        QCOMPARE(array(u"list assets --json"_s).size(), 1);
        QCOMPARE(array(u"list batches --json"_s)[0][u"name"_s], u"Kept"_s);
        QVERIFY(QFile::exists(assets[0][u"file"_s].toString()));

        QCOMPARE(run(u"delete batch Kept"_s).status, 0);
        QVERIFY(array(u"list slideshows --json"_s).isEmpty());
    }

    void aLibraryThatIsOpenElsewhere()
    {
        importPictures({u"a.png"_s});
        // It has the library open while its output is not taken.
        const auto holder = m_tool->prepare(u"--library library export --batch B --to out"_s);
        QCOMPARE(run(u"generate --content - --count 50 --batch-name B"_s, "a\nb\nc\nd\ne").status, 0);
        holder->start();
        QTRY_VERIFY(QFile::exists(m_tool->path(u"out/B/Slideshow_1/Slide_1.png"_s)));
        const Outcome second = run(u"list assets"_s);
        QVERIFY2(second.failed(1, u"already open"_s), second.all());

        ::kill(static_cast<pid_t>(holder->processId()), SIGINT);
        const Outcome interrupted = Tool::finish(*holder);
        QCOMPARE(interrupted.status, 130);
        QVERIFY2(interrupted.err.isEmpty(), interrupted.err.constData());
        const QStringList files = m_tool->files(u"out"_s);
        QVERIFY(files.size() < 250);
        for (const QString &file : files)
            QVERIFY2(file.endsWith(u".png"_s) && !QImage(m_tool->path(u"out/"_s + file)).isNull(),
                     qPrintable(file));
        QCOMPARE(array(u"list slideshows --json"_s).size(), 50);
    }

    void filesThatCannotBeWritten()
    {
        importPictures({u"a.png"_s});
        QCOMPARE(run(u"generate --content - --shape 1:1 --batch-name B"_s, "a\nb\nc").status, 0);
        QVERIFY(QDir(m_tool->path(u"."_s)).mkpath(u"out/B/Slideshow_1/Slide_2.png"_s));
        const Outcome outcome = run(u"export --batch B --to out"_s);
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.lines(), QStringList{m_tool->path(u"out/B"_s)});
        QVERIFY(outcome.error().contains(u"Slide_2.png"_s));
        QVERIFY(outcome.err.endsWith("\nmosslantern-cli: 1 of 3 slides were not written\n"));
        QVERIFY(QFile::exists(m_tool->path(u"out/B/Slideshow_1/Slide_3.png"_s)));

        QVERIFY(QDir(m_tool->path(u"library/Slideshows"_s)).removeRecursively());
        const Outcome bare = run(u"export --batch \u200E\u00A0B --to bare"_s);
        QCOMPARE(bare.status, 1);
        QVERIFY(bare.err.endsWith("\nmosslantern-cli: 3 of 3 slides were drawn without their picture\n"));

        m_tool->write(u"blocked"_s, "");
        const Outcome blocked = run(u"export --batch B --to blocked"_s);
        QVERIFY2(blocked.failed(1, m_tool->path(u"blocked"_s)), blocked.all());
    }

    void librariesThatAreNone()
    {
        const Outcome missing = run(u"list assets"_s);
        QCOMPARE(missing.status, 1);
        QVERIFY(missing.error().contains(u"There is no library in “library”."_s));
        QVERIFY(!QFile::exists(m_tool->path(u"library"_s)));

        QCOMPARE(m_tool->run(u"list assets --json"_s).out, "[]\n"); // the user's own
        m_tool->write(u"library/library.sqlite"_s, "something else");
        const Outcome foreign = run(u"import x.png"_s);
        QCOMPARE(foreign.status, 1);
        QVERIFY(foreign.error().contains(u"it is not a Mosslantern library"_s));
        QCOMPARE(m_tool->read(u"library/library.sqlite"_s), "something else");
    }

private:
    Outcome run(const QString &line, const QByteArray &input = {}) const
    {
        return m_tool->run(u"--library library "_s + line, input);
    }

    QJsonArray array(const QString &line) const { return run(line).json().array(); }

    /// The assets of plain pictures of these names, each of another colour.
    QJsonArray importPictures(const QStringList &names) const
    {
        for (qsizetype i = 0; i < names.size(); ++i)
            m_tool->writePicture(names[i], static_cast<Qt::GlobalColor>(Qt::red + i % 12));
        return run(u"import --json "_s + names.join(u' ')).json().array();
    }

    std::unique_ptr<Tool> m_tool;
};

QTEST_GUILESS_MAIN(CliLibraryTest)
#include "tst_cli_library.moc"
