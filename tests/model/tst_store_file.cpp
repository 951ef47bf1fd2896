#include "model/preferences.h"
#include "model/schema.h"
#include "tests/model/test_library.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QScopeGuard>
#include <QtCore/QStandardPaths>
#include <QtTest/QTest>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>

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

int modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777)
                                                                     : -1;
}

/// Whether a process that asks the system, not SQLite, finds a part of the file locked.
bool isLockedByAnother(const QString &path)
{
    const pid_t child = ::fork();
    if (child == 0) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        const int file = ::open(QFile::encodeName(path).constData(), O_RDWR);
        ::_exit(::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 1 : 0);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 1;
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

class StoreFileTest : public QObject
{
    Q_OBJECT

private slots:
    void refusedFilesStayAsTheyAre_data()
    {
        QTest::addColumn<std::function<void(const QString &)>>("prepare");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QString &reason,
                            std::function<void(const QString &)> prepare) {
            QTest::newRow(name) << std::move(prepare) << reason;
        };
        const auto writing = [](const QByteArray &bytes) {
            return [bytes](const QString &path) {
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly));
                QCOMPARE(file.write(bytes), bytes.size());
            };
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
            for (const auto &[name, content] : {std::pair(path, bytes), std::pair(path + u"-wal"_s, log)}) {
                QFile file(name);
                QVERIFY(file.open(QIODevice::WriteOnly));
                file.write(content);
            }
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
            executing("UPDATE asset SET id = (SELECT id FROM slideshow)"));
        row("missing table", u"no such table: asset"_s,
            executing("PRAGMA foreign_keys = OFF; DROP TABLE asset"));
        row("page of garbage", u"The library “"_s, [](const QString &path) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite));
            for (qint64 page = 4096; page < file.size(); page += 4096) {
                QVERIFY(file.seek(page));
                file.write(QByteArray(4096, '\x33'));
            }
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

    void impossiblePlaces_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("folder is a file") << u"file/library.sqlite"_s;
        QTest::newRow("parent folder is a file") << u"file/folder/library.sqlite"_s;
        QTest::newRow("library is a folder") << u"folder"_s;
        QTest::newRow("folder cannot be made") << u"/proc/mosslantern/library.sqlite"_s;
        QTest::newRow("file cannot be made") << u"/proc/library.sqlite"_s;
    }

    void impossiblePlaces()
    {
        QFETCH(QString, path);
        const TestLibrary library;
        library.writeFile(u"file"_s, "bytes");
        QVERIFY(QDir().mkpath(library.path(u"folder"_s)));
        const QString full = QDir(library.path(u""_s)).absoluteFilePath(path);
        const auto store = Store::open(LibraryLocation(full, library.path(u"documents"_s)));
        QVERIFY(!store);
        QVERIFY2(store.error().message.startsWith(u"The library “%1” could not be opened: "_s.arg(full)),
                 qPrintable(store.error().message));
        QCOMPARE(readFile(library.path(u"file"_s)), "bytes");
    }

    void missingRights_data()
    {
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<QString>("reason");
        QTest::newRow("file cannot be read") << 0777 << 0222 << u"opened: Permission denied"_s;
        QTest::newRow("file cannot be written") << 0777 << 0444 << u"opened: Permission denied"_s;
        QTest::newRow("folder cannot be written")
            << 0555 << 0666 << u"its folder cannot be written: Permission denied"_s;
        QTest::newRow("folder cannot be entered") << 0000 << 0666 << u"Permission denied"_s;
    }

    void missingRights()
    {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        QFETCH(QString, reason);
        TestLibrary library;
        library.addAsset(u"a"_s);
        library.close();
        const QString folder = QFileInfo(library.storeFile()).path();
        const auto setMode = [](const QString &path, int mode) {
            return ::chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(mode)) == 0;
        };
        QVERIFY(setMode(library.path(u"."_s), 0755) && setMode(library.storeFile(), fileMode) &&
                setMode(folder, folderMode));

        // The superuser may do anything.
        const bool isRoot = ::geteuid() == 0;
        constexpr uid_t nobody = 65534;
        QVERIFY(!isRoot || ::seteuid(nobody) == 0);
        const QString error = library.openingError();
        QVERIFY(!isRoot || ::seteuid(0) == 0);
        QVERIFY2(error.contains(reason), qPrintable(error));
        QVERIFY(setMode(folder, 0700) && setMode(library.storeFile(), 0600));
        QCOMPARE(library.store().all<Asset>().size(), 1U);
    }

    void zeroLengthFileIsANewLibrary()
    {
        TestLibrary library;
        QVERIFY(QDir().mkpath(QFileInfo(library.storeFile()).path()));
        library.writeFile(u"library/library.sqlite"_s, "");
        library.addAsset(u"a"_s);
        QCOMPARE(library.reopen().all<Asset>().size(), 1U);
    }

    void onlyTheOwnerMayRead()
    {
        const mode_t mask = ::umask(0);
        TestLibrary library;
        const LibraryLocation location(library.path(u"a/b/library.sqlite"_s), library.path(u"documents"_s));
        auto store = Store::open(location);
        ::umask(mask);
        QVERIFY(store);
        QCOMPARE(modeOf(library.path(u"a"_s)), 0700);
        QCOMPARE(modeOf(library.path(u"a/b"_s)), 0700);
        QCOMPARE(modeOf(location.storeFile()), 0600);
        (*store)->insert(std::make_unique<Asset>(u"f"_s, u"n"_s, nullptr));
        QVERIFY((*store)->flush());
        QCOMPARE(modeOf(location.storeFile() + u"-wal"_s), 0600);

        store->reset();
        QVERIFY(QFile::setPermissions(location.storeFile(), QFile::ReadOther | QFile::WriteOther |
                                                                QFile::ReadOwner | QFile::WriteOwner));
        const QString link = library.path(u"link"_s);
        QVERIFY(QFile::link(location.storeFile(), link));
        store = Store::open(LibraryLocation(link, QString()));
        QVERIFY2(store, "a library behind a link");
        QCOMPARE((*store)->all<Asset>().size(), 1U);
        QCOMPARE(modeOf(location.storeFile()), 0600);
    }

    void secondStoreOfThisProcessIsRefused()
    {
        TestLibrary library;
        library.addAsset(u"a"_s);
        for (int attempt = 0; attempt < 2; ++attempt) {
            const auto second = Store::open(library.location());
            QVERIFY(!second);
            QVERIFY2(second.error().message.endsWith(u"it is already open in another Mosslantern."_s),
                     qPrintable(second.error().message));
        }
        QVERIFY(isLockedByAnother(library.storeFile()));
        QVERIFY(library.store().flush());
        library.close();
        QVERIFY(!isLockedByAnother(library.storeFile()));
    }

    void killedProcessLeavesNoLock()
    {
        TestLibrary library;
        int ready[2];
        QCOMPARE(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            library.addAsset(u"a"_s);
            const bool saved = library.store().flush().has_value();
            ::_exit(::write(ready[1], &saved, 1) == 1 ? ::pause() : 1);
        }
        bool saved = false;
        QCOMPARE(::read(ready[0], &saved, 1), 1);
        QVERIFY(saved);
        QVERIFY(library.openingError().endsWith(u"it is already open in another Mosslantern."_s));
        QCOMPARE(::kill(child, SIGKILL), 0);
        QCOMPARE(::waitpid(child, nullptr, 0), child);
        QCOMPARE(library.openingError(), QString());
        QCOMPARE(library.store().all<Asset>().size(), 1U);
        ::close(ready[0]);
        ::close(ready[1]);
    }

    void standardPlaces_data()
    {
        QTest::addColumn<QByteArray>("home");
        QTest::addColumn<QByteArray>("xdg");
        QTest::addColumn<QString>("usedHome");
        const QString ownHome = QFile::decodeName(::getpwuid(::getuid())->pw_dir);
        QTest::newRow("HOME alone") << QByteArray("/h") << QByteArray() << u"/h"_s;
        QTest::newRow("HOME and XDG") << QByteArray("/h") << QByteArray("/x") << u"/h"_s;
        QTest::newRow("relative XDG") << QByteArray("/h") << QByteArray("x") << u"/h"_s;
        QTest::newRow("nothing") << QByteArray() << QByteArray() << ownHome;
        QTest::newRow("only XDG") << QByteArray() << QByteArray("/x") << ownHome;
        QTest::newRow("all relative") << QByteArray("h") << QByteArray("x") << ownHome;
    }

    void standardPlaces()
    {
        QFETCH(QByteArray, home);
        QFETCH(QByteArray, xdg);
        QFETCH(QString, usedHome);
        const std::array variables{"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"};
        std::array<QByteArray, 3> before;
        std::ranges::transform(variables, before.begin(), [](const char *name) { return qgetenv(name); });
        const auto restore = qScopeGuard([&] {
            for (size_t i = 0; i < variables.size(); ++i)
                before[i].isNull() ? qunsetenv(variables[i]) : qputenv(variables[i], before[i]);
        });
        qputenv("HOME", home);
        qputenv("XDG_DATA_HOME", xdg);
        qputenv("XDG_CONFIG_HOME", xdg);

        const LibraryLocation location = LibraryLocation::standard();
        const QString data = xdg.startsWith('/') ? u"/x"_s : usedHome + u"/.local/share"_s;
        const QString config = xdg.startsWith('/') ? u"/x"_s : usedHome + u"/.config"_s;
        QCOMPARE(location.storeFile(), data + u"/tst_store_file/library.sqlite"_s);
        QCOMPARE(Preferences::standardFile(), config + u"/tst_store_file/preferences.ini"_s);
        QCOMPARE(QDir::homePath(), usedHome);
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        QCOMPARE(location.assetFolder(), documents + u"/Assets"_s);
        QCOMPARE(location.slideImageFolder(), documents + u"/Slideshows"_s);
        QCOMPARE(LibraryLocation::inFolder(u"."_s), LibraryLocation::inFolder(QDir::currentPath()));
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

QTEST_GUILESS_MAIN(StoreFileTest)
#include "tst_store_file.moc"
