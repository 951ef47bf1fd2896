#include "model/slideshow.h"
#include "tests/app/tool.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

/// Every system call of these kinds fails once in every run, and the disk is full from every write on.
class CliFailingSystemTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const char *const name : {"old/a.png", "old/b.png", "new/c.png", "new/d.png"})
            m_tool.writePicture(QString::fromLatin1(name), Qt::blue, {64, 48});
        m_tool.write(u"content.txt"_s, "नमस्ते 🙂\n");
        QVERIFY(m_tool.run(u"import --library before old/a.png old/b.png"_s).succeeded());
        QVERIFY(m_tool
                    .run(u"generate --library before --content content.txt --count 2 --shape 1:1 "
                         "--batch-name B --seed 1"_s)
                    .succeeded());
        for (const QString &file : m_tool.files(u"before"_s)) {
            if (!file.contains(u"-copies/"_s))
                m_tool.write(u"damaged/"_s + file, m_tool.read(u"before/"_s + file));
        }
        m_damaged = m_tool.read(u"before/library.sqlite"_s);
        m_tool.write(u"damaged/library.sqlite-copies/2026-03-01.sqlite"_s, m_damaged);
        const qsizetype place = m_damaged.indexOf("नमस्ते");
        m_damaged[place] = static_cast<char>(m_damaged[place] ^ 1);
        m_tool.write(u"damaged/library.sqlite"_s, m_damaged);
        m_tool.write(u"damaged/library.sqlite-wal"_s, m_log);
    }

    void everyFailureIsSaidAndLosesNothing_data()
    {
        const auto row = table<QString, QString>({"line", "kind"});
        const QString import = u"import --library library new"_s;
        const QString generate = u"generate --library library --content content.txt --shape 1:1 --count 2 "
                                 "--batch-name N --seed 2"_s;
        const QString exporting = u"export --library library --batch B --to out"_s;
        const QString make = u"make --images new --content content.txt --shape 1:1 --out out --batch-name M "
                             "--seed 2"_s;
        const QString save = u"delete batch --library library B"_s;
        const QString useCopy = u"recover --library library --use-copy"_s;
        const QString rescue = u"recover --library library --rescue"_s;
        for (const char *const kind : {"write", "open", "rename", "fsync", "mmap", "clone"}) {
            for (const QString &line : {import, generate, exporting, make, save, useCopy, rescue}) {
                const QString command = line.section(u' ', 0, 0);
                const QString how = line == rescue ? u" rescue "_s : u" "_s;
                row(qPrintable(command + how + QLatin1String(kind)), line, QString::fromLatin1(kind));
            }
        }
    }

    void everyFailureIsSaidAndLosesNothing()
    {
        QFETCH(QString, line);
        QFETCH(QString, kind);
        prepare(line);
        const QStringList before = library();
        const Outcome untroubled = run(line, kind + u" 0"_s);
        QVERIFY2(untroubled.status == 0, untroubled.all());
        const QStringList after = library();
        const std::map<QString, QImage> written = files(u"out"_s);
        const int calls = m_tool.read(u"calls"_s).trimmed().toInt();
        QStringList wrong;
        for (const char *const onwards : {"", "+"}) {
            for (int call = 1; call <= calls && (!*onwards || kind == u"write"_s || kind == u"clone"_s);
                 ++call) {
                prepare(line);
                const QString failing = u"%1 %2%3"_s.arg(kind).arg(call).arg(QLatin1String(onwards));
                const Outcome outcome = run(line, failing);
                const QString fault = verdict(outcome, before, after, written);
                if (!fault.isEmpty())
                    wrong.append(failing + u": "_s + fault + u" | "_s + QString::fromUtf8(outcome.all()));
            }
        }
        QVERIFY2(wrong.isEmpty(),
                 qPrintable(u"%1 of %2 calls:\n"_s.arg(wrong.size()).arg(calls) + wrong.join(u'\n')));
    }

private:
    void prepare(const QString &line) const
    {
        const QString source = line.startsWith(u"recover"_s) ? u"damaged/"_s : u"before/"_s;
        for (const QString &folder : {u"library"_s, u"out"_s})
            QDir(m_tool.path(folder)).removeRecursively();
        QFile::remove(m_tool.path(u"calls"_s));
        for (const QString &file : m_tool.files(source))
            m_tool.write(u"library/"_s + file, m_tool.read(source + file));
    }

    Outcome run(const QString &line, const QString &failing)
    {
        const auto process = m_tool.prepare(line);
        QProcessEnvironment environment = process->processEnvironment();
        environment.insert(u"LD_PRELOAD"_s, QStringLiteral(FAILING_SYSTEM));
        environment.insert(u"FAILING_CALL"_s, failing);
        environment.insert(u"FAILING_CALL_COUNT"_s, m_tool.path(u"calls"_s));
        process->setProcessEnvironment(environment);
        process->start();
        return Tool::finish(*process);
    }

    /// All records, each with the bytes of its picture, and what is kept of a damaged library.
    QStringList library() const
    {
        QStringList records;
        for (const auto &[what, bytes] : {std::pair(u"damaged file"_s, m_damaged), {u"its log"_s, m_log}}) {
            if (std::ranges::any_of(m_tool.files(u"library"_s), [&](const QString &file) {
                    return m_tool.read(u"library/"_s + file) == bytes;
                }))
                records << what;
        }
        const auto store = Store::open(LibraryLocation::inFolder(m_tool.path(u"library"_s)));
        if (!store)
            return records << u"cannot be opened: "_s + store.error().message;
        for (const Asset *asset : (*store)->all<Asset>())
            records << u"asset "_s + asset->name() + picture(asset->fileURL());
        for (const Slideshow *slideshow : (*store)->all<Slideshow>()) {
            records << u"slideshow "_s + slideshow->batchName().value_or(QString());
            for (const Slide *slide : slideshow->slides())
                records << u"slide "_s + slide->text() + picture(slide->imageURL());
        }
        records.sort();
        return records;
    }

    static QString picture(const QUrl &url)
    {
        return u' ' + QString::fromLatin1(readFile(url.toLocalFile()).toBase64());
    }

    /// The slides of a folder; what is no whole picture is null. Their pixels are compared and not their
    /// bytes, because ISA-L packs some bands in one of two ways, depending on an address.
    std::map<QString, QImage> files(const QString &folder) const
    {
        std::map<QString, QImage> found;
        for (const QString &file : m_tool.files(folder))
            found[file] = QImage(m_tool.path(folder + u'/' + file));
        return found;
    }

    /// What is wrong with what a run has left; empty when nothing is.
    QString verdict(const Outcome &outcome, const QStringList &before, const QStringList &after,
                    const std::map<QString, QImage> &written) const
    {
        const bool isSaid = outcome.status == 1 && ("\n" + outcome.err).contains("\nmosslantern-cli: ");
        if (outcome.status != 0 && !isSaid)
            return u"no status 1 with a sentence"_s;
        const std::map<QString, QImage> now = files(u"out"_s);
        for (const auto &[name, slide] : now) {
            const auto whole = written.find(name);
            const bool isWhole = whole != written.end() && !slide.isNull() && whole->second == slide;
            if (!isWhole && !outcome.error().contains(name + u"” is drawn without its picture"_s))
                return u"not a whole file: "_s + name;
        }
        const QStringList contents = library();
        if (outcome.status == 0 && (now != written || contents != after))
            return u"success that is none"_s;
        for (const QString &record : contents) {
            if (!before.contains(record) && !after.contains(record))
                return u"damaged: "_s + record;
        }
        for (const QString &record : before) {
            if (after.contains(record) && !contents.contains(record))
                return u"lost: "_s + record;
        }
        return {};
    }

    Tool m_tool;
    QByteArray m_damaged; // the file of a library
    QByteArray m_log = "what an interrupted save has left";
};

QTEST_GUILESS_MAIN(CliFailingSystemTest)
#include "tst_cli_failing_system.moc"
