#include "model/schema.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

SQLite::Database openRaw(const QString &path)
{
    return {QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
}

void execute(const QString &path, const char *sql)
{
    openRaw(path).exec(sql);
}

/// Everything that makes up a schema, and the version.
QStringList schemaOf(SQLite::Database &database)
{
    QStringList schema{QString::number(database.execAndGet("PRAGMA user_version").getInt())};
    SQLite::Statement statement(database,
                                "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY name");
    while (statement.executeStep())
        schema << QString::fromStdString(statement.getColumn(0).getString());
    return schema;
}

/// The bytes of every file in the folder, by name.
QMap<QString, QByteArray> filesIn(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        files[file.fileName()] = readFile(file.filePath());
    return files;
}

} // namespace

class StoreContentsTest : public QObject
{
    Q_OBJECT

private slots:
    void refusedFilesStayAsTheyAre_data()
    {
        const auto row = table<QString, std::function<void(const QString &)>>({"reason", "prepare"});
        const auto writing = [](const QByteArray &bytes) {
            return [bytes](const QString &path) { writeFile(path, bytes); };
        };
        const auto executing = [](const QByteArray &sql) {
            return [sql](const QString &path) { execute(path, sql.constData()); };
        };
        const QString foreign = u"it is not a Mosslantern library."_s;
        const QString newer = u"it was written by a newer version of Mosslantern."_s;

        row("text file", foreign, writing("Dear diary, today I was no library."));
        row("long garbage", foreign, writing(QByteArray(100'000, '\xA5')));
        row("one byte", foreign, writing("S"));
        row("other application", foreign, executing("CREATE TABLE t (x); PRAGMA application_id = 7"));
        row("other application in WAL mode", foreign,
            executing("PRAGMA journal_mode = WAL; CREATE TABLE t (x)"));
        row("other application, interrupted", foreign, [](const QString &path) {
            execute(path, "CREATE TABLE t (x); INSERT INTO t VALUES (zeroblob(20000))");
            QFile::copy(path, path + u"-journal"_s);
        });
        row("newer version", newer, executing("PRAGMA user_version = 99"));
        row("newer version, only in the log", newer, [](const QString &path) {
            SQLite::Database database = openRaw(path);
            database.exec("PRAGMA user_version = 99");
            const QByteArray log = readFile(path + u"-wal"_s);
            QVERIFY(!log.isEmpty());
            const QByteArray bytes = readFile(path);
            database = openRaw(u":memory:"_s);
            writeFile(path, bytes);
            writeFile(path + u"-wal"_s, log);
        });
        row("header of a library, then nothing", u"damaged"_s,
            [](const QString &path) { QVERIFY(QFile::resize(path, 200)); });
        row("unknown text style", u"the table “slide” holds the unknown text style “Neon”"_s,
            executing("UPDATE slide SET textStyle = 'Neon'"));
        row("unknown shape", u"the table “slideshow” holds the unknown canvas shape “16:9”"_s,
            executing("UPDATE slideshow SET aspectRatio = '16:9'"));
        row("short id", u"the table “asset” holds an id that is not a UUID"_s,
            executing("UPDATE asset SET id = x'1234'"));
        row("row before the first", u"the table “asset” holds the impossible row 0"_s,
            executing("UPDATE asset SET row = 0"));
        row("last row there can be", u"the table “asset” holds the impossible row 9223372036854775807"_s,
            executing("UPDATE asset SET row = 9223372036854775807"));
        for (const char *name : {"", ".", "..", "/x", "../x", "x/"}) {
            row(qPrintable(u"asset's file “%1”"_s.arg(QLatin1StringView(name))),
                u"the table “asset” holds “%1” as the name of a file"_s.arg(QLatin1StringView(name)),
                executing(QByteArray("UPDATE asset SET filename = '") + name + "'"));
        }
        row("slide's file", u"the table “slide” holds “../x” as the name of a file"_s,
            executing("UPDATE slide SET imageFilename = '../x'"));
        for (const char *time : {"-9223372036854775808", "9223372036854775807", "253402300800000"}) {
            row(time, u"the table “slideshow” holds the impossible time %1"_s.arg(QLatin1StringView(time)),
                executing(QByteArray("UPDATE slideshow SET createdAt = ") + time));
        }
        row("slide of no slideshow", u"the table “slide” holds a relation to a record that does not exist"_s,
            executing("PRAGMA foreign_keys = OFF; DELETE FROM slideshow"));
        row("same id twice", u"two records have the same id"_s,
            executing("UPDATE asset SET id = (SELECT id FROM slideshow); UPDATE tally SET rows = NULL"));
        row("changed text", u"the table “slide” is not as it was saved"_s,
            executing("UPDATE slide SET text = 'y'"));
        row("missing row", u"the table “slide” is not as it was saved"_s, executing("DELETE FROM slide"));
        row("missing table", u"it lacks the index “sqlite_autoindex_contentTemplate_1”."_s,
            executing("DROP TABLE contentTemplate"));
        row("trigger", u"it holds the trigger “t”, which no library has."_s,
            executing("CREATE TRIGGER t AFTER UPDATE ON asset BEGIN DELETE FROM slideshow; END"));
        row("view", u"it holds the view “v”, which no library has."_s,
            executing("CREATE VIEW v AS SELECT * FROM asset"));
        row("view in place of a table", u"it holds the view “slidePreset”, which no library has."_s,
            executing("DROP TABLE slidePreset; CREATE VIEW slidePreset AS SELECT 1 AS row"));
        row("virtual table", u"it holds the table “v”, which no library has."_s,
            executing("CREATE VIRTUAL TABLE v USING fts5 (x)"));
        row("index on an expression", u"it holds the index “i”, which no library has."_s,
            executing("CREATE INDEX i ON asset (upper(name))"));
        row("generated column", u"the table “asset” is not as Mosslantern makes it."_s,
            executing("ALTER TABLE asset ADD COLUMN x TEXT AS (hex(zeroblob(1000000)))"));
        row("text where a number belongs", u"the table “asset” is not as Mosslantern makes it."_s,
            executing("PRAGMA writable_schema = ON; "
                      "UPDATE sqlite_schema SET sql = replace(sql, ') STRICT', ')') WHERE name = 'asset'"));
        row("page of garbage", u"The library “"_s, [](const QString &path) {
            writeFile(path, readFile(path).first(4096).leftJustified(QFileInfo(path).size(), '\x33'));
        });
    }

    void refusedFilesStayAsTheyAre()
    {
        QFETCH(std::function<void(const QString &)>, prepare);
        QFETCH(QString, reason);
        TestLibrary library;
        const bool isForeign = reason == u"it is not a Mosslantern library."_s;
        if (isForeign) {
            QVERIFY(QDir().mkpath(QFileInfo(library.storeFile()).path()));
        } else {
            library.addSlideshow(library.addAsset(u"a"_s), {u"x"_s});
            library.close();
        }
        prepare(library.storeFile());
        QVERIFY(QFile::setPermissions(library.storeFile(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
        const int mode = modeOf(library.storeFile());
        const auto before = filesIn(QFileInfo(library.storeFile()).path());

        const QString error = library.openingError();
        QVERIFY2(error.contains(reason), qPrintable(error));
        QVERIFY2(error.contains(library.storeFile()), qPrintable(error));
        if (isForeign)
            QCOMPARE(modeOf(library.storeFile()), mode);
        const auto after = filesIn(QFileInfo(library.storeFile()).path());
        for (const QString &name : after.keys()) // SQLite may leave an empty log beside a damaged file
            QVERIFY2(after[name] == before.value(name, ""), qPrintable(name));
        QVERIFY(after.size() >= before.size());
    }

    void zeroLengthFileIsANewLibrary()
    {
        TestLibrary library;
        QVERIFY(QDir().mkpath(QFileInfo(library.storeFile()).path()));
        library.writeFile(u"library/library.sqlite"_s, "");
        library.addAsset(u"a"_s);
        QCOMPARE(library.reopen().all<Asset>().size(), 1U);
    }

    void migrationAppliesTheMissingSteps()
    {
        const std::vector<const char *> steps{"CREATE TABLE a (x)",
                                              "ALTER TABLE a ADD COLUMN y; CREATE TABLE b (z)",
                                              "INSERT INTO a VALUES (1, 2)"};
        const TestLibrary library;
        SQLite::Database fresh = openRaw(library.path(u"fresh"_s));
        migrate(fresh, steps);
        SQLite::Database grown = openRaw(library.path(u"grown"_s));
        for (size_t count = 1; count <= steps.size(); ++count)
            migrate(grown, std::span(steps).first(count));
        QCOMPARE(schemaOf(grown), schemaOf(fresh));
        QCOMPARE(schemaOf(fresh)[0], u"3"_s);
        QCOMPARE(grown.execAndGet("SELECT count(*) FROM a").getInt(), 1);
        QCOMPARE(grown.execAndGet("PRAGMA application_id").getInt(), storeApplicationId);
    }

    void failedMigrationStepLeavesNoTrace()
    {
        const std::vector<const char *> steps{"CREATE TABLE a (x)", "CREATE TABLE b (x); CREATE TABLE a (y)"};
        const TestLibrary library;
        SQLite::Database database = openRaw(library.path(u"file"_s));
        QVERIFY_EXCEPTION_THROWN(migrate(database, steps), SQLite::Exception);
        QCOMPARE(schemaOf(database), (QStringList{u"1"_s, u"CREATE TABLE a (x)"_s}));
    }
};

QTEST_GUILESS_MAIN(StoreContentsTest)
#include "tst_store_contents.moc"
