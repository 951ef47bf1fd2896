#include "model/image_files.h"
#include "model/preferences.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QScopeGuard>
#include <QtCore/QStandardPaths>

#include <fcntl.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

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

} // namespace

class StoreFileTest : public QObject
{
    Q_OBJECT

private slots:
    void impossiblePlaces_data()
    {
        const auto row = table<QString>({"path"});
        row("folder is a file", u"file/library.sqlite"_s);
        row("parent folder is a file", u"file/folder/library.sqlite"_s);
        row("library is a folder", u"folder"_s);
        row("folder cannot be made", u"/proc/mosslantern/library.sqlite"_s);
        row("file cannot be made", u"/proc/library.sqlite"_s);
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
        const auto row = table<int, int, QString, QString>({"folderMode", "fileMode", "error", "readOnly"});
        row("file cannot be read", 0777, 0222, u"opened: Permission denied"_s, {});
        row("folder cannot be entered", 0000, 0666, u"Permission denied"_s, {});
        row("file cannot be written", 0777, 0444, {}, u"its file cannot be written: Permission denied"_s);
        row("folder cannot be written", 0555, 0666, {}, u"its folder cannot be written: Permission denied"_s);
        row("neither", 0555, 0444, {}, u"its file cannot be written: Permission denied"_s);
    }

    /// What may only be read is read, with the last save of a process that was killed, and stays as it is.
    void missingRights()
    {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        QFETCH(QString, error);
        QFETCH(QString, readOnly);
        for (const bool wasKilled : {false, true}) {
            TestLibrary library;
            library.addAsset(u"a"_s);
            library.close();
            const QString log = library.storeFile() + u"-wal"_s;
            if (wasKilled) {
                const pid_t child = ::fork();
                if (child == 0) {
                    library.addAsset(u"b"_s);
                    ::_exit(library.store().flush() ? 0 : 1);
                }
                QCOMPARE(::waitpid(child, nullptr, 0), child);
                QVERIFY(QFileInfo(log).size() > 0);
                QCOMPARE(::chmod(QFile::encodeName(log).constData(), 0644), 0);
            }
            const QString folder = QFileInfo(library.storeFile()).path();
            const auto setMode = [](const QString &path, int mode) {
                return ::chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(mode)) == 0;
            };
            QVERIFY(setMode(library.path(u"."_s), 0755) && setMode(library.storeFile(), fileMode) &&
                    setMode(folder, folderMode));
            const QByteArray before = readFile(library.storeFile()) + readFile(log);

            // The superuser may do anything.
            const bool isRoot = ::geteuid() == 0;
            constexpr uid_t nobody = 65534;
            QVERIFY(!isRoot || ::seteuid(nobody) == 0);
            const QString message = library.openingError();
            if (error.isEmpty() && message.isEmpty()) {
                Store &store = library.store();
                QCOMPARE(store.readOnlyReason(), readOnly);
                QCOMPARE(store.all<Asset>().size(), wasKilled ? 2U : 1U);
                store.all<Asset>()[0]->setCollection(library.addCollection(u"c"_s));
                QVERIFY(!store.flush());
                const ConsoleCapture console;
                QVERIFY(!importAsset(QUrl::fromLocalFile(library.storeFile()), store));
                library.close();
            }
            QVERIFY(!isRoot || ::seteuid(0) == 0);
            QVERIFY2(error.isEmpty() ? message.isEmpty() : message.contains(error), qPrintable(message));
            QVERIFY(setMode(folder, 0700) && setMode(library.storeFile(), 0600));
            QCOMPARE(readFile(library.storeFile()) + readFile(log), before);
            QCOMPARE(library.store().all<Asset>().size(), wasKilled ? 2U : 1U);
        }
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
        const auto row = table<QByteArray, QByteArray, QString>({"home", "xdg", "usedHome"});
        const QString ownHome = QFile::decodeName(::getpwuid(::getuid())->pw_dir);
        row("HOME alone", "/h", {}, u"/h"_s);
        row("HOME and XDG", "/h", "/x", u"/h"_s);
        row("relative XDG", "/h", "x", u"/h"_s);
        row("nothing", {}, {}, ownHome);
        row("only XDG", {}, "/x", ownHome);
        row("all relative", "h", "x", ownHome);
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
};

QTEST_GUILESS_MAIN(StoreFileTest)
#include "tst_store_file.moc"
