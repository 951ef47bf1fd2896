#include "model/content_template.h"
#include "model/library_recovery.h"
#include "model/schema.h"
#include "tests/model/test_library.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMetaProperty>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <SQLiteCpp/Database.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QString described(const QVariant &value)
{
    if (const auto *const record = value.value<Record *>())
        return QString::number(record->row());
    return value.canConvert<QString>() ? value.toString() : QString();
}

/// Every field of every record but those that follow from others.
QStringList contentsOf(const Store &store)
{
    QStringList contents;
    const auto add = [&](const auto &records) {
        for (const auto *record : records) {
            QStringList fields{QString::number(record->row())};
            const QMetaObject *const type = record->metaObject();
            for (int i = 1; i < type->propertyCount(); ++i) {
                if (const QMetaProperty property = type->property(i);
                    qstrcmp(property.name(), "imageURL") != 0)
                    fields << described(property.read(record));
            }
            contents << fields.join(u'|');
        }
    };
    add(store.all<Collection>());
    add(store.all<Asset>());
    add(store.all<Slideshow>());
    add(store.all<Slide>());
    add(store.all<ContentTemplate>());
    return contents;
}

/// Some records of every kind that has relations, many pages of them.
void fill(TestLibrary &library)
{
    for (int i = 0; i < 20; ++i) {
        Collection *const collection = library.addCollection(u"collection %1"_s.arg(i));
        for (int j = 0; j < 20; ++j) {
            Asset *const asset = library.addAsset(u"asset %1 of %2"_s.arg(j).arg(i), collection);
            if (j % 5 == 0)
                library.addSlideshow(asset, {u"one"_s, u"two %1"_s.arg(j), u"three"_s}, u"batch"_s)
                    ->setCollection(collection);
        }
        library.store().insert(
            std::make_unique<ContentTemplate>(u"template"_s, QString(3000, QChar(u'a' + i))));
    }
    // Some free pages, too.
    if (!library.store().flush())
        qFatal("not saved");
    for (ContentTemplate *old : library.store().fetch<ContentTemplate>(
             [](const ContentTemplate &one) { return one.row() % 3 == 0; }))
        library.store().remove(old);
    library.close();
}

/// Spoils a file in one of the ways in which disks, transfers and programs do.
QByteArray damaged(QByteArray bytes, QRandomGenerator &random)
{
    constexpr int page = 4096;
    const qsizetype at = random.bounded(bytes.size());
    switch (random.bounded(6)) {
    case 0: // one bit
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
        break;
    case 1: // some bytes
        for (qsizetype i = at; i < std::min(at + random.bounded(1, 64), bytes.size()); ++i)
            bytes[i] = static_cast<char>(random.bounded(256));
        break;
    case 2: // a sector
        std::fill_n(bytes.begin() + at / 512 * 512, 512, '\0');
        break;
    case 3: { // a page that was written to the wrong place
        const qsizetype from = random.bounded(bytes.size()) / page * page;
        bytes.replace(at / page * page, page, bytes.mid(from, page));
        break;
    }
    case 4: // the end
        bytes.truncate(at);
        break;
    case 5: { // two neighbouring bytes
        const qsizetype second = std::min(at + 1, bytes.size() - 1);
        std::swap(bytes[at], bytes[second]);
        break;
    }
    }
    return bytes;
}

} // namespace

class LibraryRecoveryTest : public QObject
{
    Q_OBJECT

private slots:
    void damageIsNoticedAndWhatIsReadableRescued()
    {
        TestLibrary library;
        fill(library);
        const QByteArray whole = readFile(library.storeFile());
        const QStringList contents = contentsOf(library.store());
        library.close();

        QRandomGenerator random(12);
        int refused = 0;
        int notWritten = 0;
        int unharmed = 0;
        int rescued = 0;
        for (int round = 0; round < 300; ++round) {
            const QByteArray bytes = damaged(whole, random);
            QDir(QFileInfo(library.storeFile()).path()).removeRecursively();
            QVERIFY(QDir().mkpath(QFileInfo(library.storeFile()).path()));
            writeFile(library.storeFile(), bytes);
            const bool opens = library.openingError().isEmpty();
            QVERIFY2(!opens || contentsOf(library.store()) == contents, qPrintable(QString::number(round)));
            if (opens) {
                // What the records do not show keeps anything from being written, or does not matter.
                library.addCollection(u"new"_s);
                if (library.store().flush()) {
                    QCOMPARE(contentsOf(library.reopen()).size(), contents.size() + 1);
                    library.close();
                    QVERIFY(checkLibrary(library.location()));
                    ++unharmed;
                    continue;
                }
                ++notWritten;
                library.close();
            } else {
                ++refused;
            }
            QCOMPARE(readFile(library.storeFile()), bytes);

            const Result<Recovery> recovery = rescueLibrary(library.location());
            if (!recovery) {
                QCOMPARE(readFile(library.storeFile()), bytes);
                continue;
            }
            QCOMPARE(readFile(recovery->damagedFile), bytes);
            const QStringList left = contentsOf(library.store());
            QCOMPARE(left.size(), recovery->records);
            QVERIFY(left.size() + recovery->lost >= contents.size() || recovery->isDoubtful);
            if (opens)
                QCOMPARE(left, contents);
            rescued += left.size() > contents.size() / 2;
            library.close();
            QVERIFY(checkLibrary(library.location()));
        }
        qInfo("refused %d, opened but never written %d, unharmed %d; more than half rescued of %d", refused,
              notWritten, unharmed, rescued);
        QVERIFY(refused > 100 && notWritten > 0);
        QVERIFY(rescued > (refused + notWritten) / 2);
    }

    void copiesOfFiveDays()
    {
        TestLibrary library;
        fill(library);
        library.store().insert(std::make_unique<ContentTemplate>(u"long"_s, QString(2'000'000, u'x')));
        const QStringList contents = contentsOf(library.store());
        library.close();
        SQLite::Database database(QFile::encodeName(library.storeFile()).toStdString());
        const QDate first(2026, 2, 26);
        QVERIFY(isCopyDue(library.location(), first.startOfDay()));
        for (int day = 0; day < 7; ++day)
            QVERIFY(copyLibrary(database, library.location(), first.addDays(day), [] { return true; }));
        QVERIFY(copyLibrary(database, library.location(), first.addDays(8), [] { return false; }));
        const auto isDue = [&](const QTime &savedAt, const QDateTime &now) {
            const QDateTime copiedAt(first.addDays(6), {10, 0});
            for (const auto &[file, time] : {std::pair(copiesOf(library.location())[0].file, copiedAt),
                                             {library.storeFile(), QDateTime(copiedAt.date(), savedAt)}}) {
                QFile changed(file);
                if (!changed.open(QIODevice::ReadWrite) ||
                    !changed.setFileTime(time, QFileDevice::FileModificationTime))
                    qFatal("cannot set the time of a file");
            }
            return isCopyDue(library.location(), now);
        };
        const QDateTime noon(first.addDays(6), {12, 0});
        QVERIFY(isDue({10, 30}, noon));
        QVERIFY(isDue({10, 30}, noon.addDays(3)));
        QVERIFY2(!isDue({10, 30}, noon.addSecs(-3660)), "the copy is not an hour old");
        QVERIFY2(!isDue({9, 0}, noon.addDays(3)), "nothing has changed since");
        QVERIFY2(!isDue({10, 30}, noon.addDays(-1)), "the clock went back");

        const QDir folder(library.location().copyFolder());
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden, QDir::Name),
                 (QStringList{u"2026-02-28.sqlite"_s, u"2026-03-01.sqlite"_s, u"2026-03-02.sqlite"_s,
                              u"2026-03-03.sqlite"_s, u"2026-03-04.sqlite"_s}));
        QCOMPARE(modeOf(folder.path()), 0700);
        QCOMPARE(modeOf(copiesOf(library.location())[0].file), 0600);

        // The newest is damaged, and so is the library.
        const QString newest = copiesOf(library.location())[0].file;
        writeFile(newest, readFile(newest).replace("asset 3 of 4", "asset 3 of 5"));
        writeFile(library.storeFile(), "SQLite format 3");
        const auto copy = newestWholeCopy(library.location());
        QVERIFY(copy);
        QCOMPARE(copy->day, QDate(2026, 3, 3));
        const Result<Recovery> recovery = useCopy(library.location(), *copy);
        QVERIFY2(recovery, qPrintable(recovery ? QString() : recovery.error().message));
        QCOMPARE(recovery->records, contents.size());
        QCOMPARE(readFile(recovery->damagedFile), "SQLite format 3");
        QCOMPARE(contentsOf(library.store()), contents);
        QVERIFY(QFile::exists(copy->file));
    }

    void upkeepChecksCopiesAndCleans()
    {
        TestLibrary library;
        fill(library);
        const QString left = library.location().assetFolder() +
                             u"/.mosslantern-9F3FEC58-B5EE-4DA7-BE6E-FA17B794365C.partial"_s;
        QVERIFY(QDir().mkpath(library.location().assetFolder()));
        writeFile(left, "half");
        library.store().beginUpkeep();
        library.addCollection(u"new"_s); // waits for the check
        QTRY_VERIFY(!QFile::exists(left));
        QTRY_COMPARE(copiesOf(library.location()).size(), 1U);
        library.close();
        QCOMPARE(library.store().all<Collection>().size(), 21U);
        library.close();

        // An index is damaged: everything can be read, nothing may be written.
        SQLite::Database database(QFile::encodeName(library.storeFile()).toStdString(),
                                  SQLite::OPEN_READWRITE);
        const int page = database.execAndGet("SELECT rootpage FROM sqlite_schema WHERE name = 'slideAsset'");
        database = SQLite::Database(":memory:");
        QByteArray bytes = readFile(library.storeFile());
        bytes[page * 4096 - 3] = static_cast<char>(bytes[page * 4096 - 3] ^ 1);
        writeFile(library.storeFile(), bytes);
        Store &store = library.store();
        QString message;
        QObject::connect(&store, &Store::damageFound, [&](const QString &found) { message = found; });
        store.beginUpkeep();
        QTRY_VERIFY2(message.contains(u"is damaged: "_s), qPrintable(message));
        library.addCollection(u"newer"_s);
        QVERIFY(!store.flush());
        library.close();
        QCOMPARE(readFile(library.storeFile()), bytes);
    }

    void libraryOfTheFirstSchema()
    {
        TestLibrary library;
        QVERIFY(QDir().mkpath(QFileInfo(library.storeFile()).path()));
        {
            SQLite::Database database(QFile::encodeName(library.storeFile()).toStdString(),
                                      SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            migrate(database, schemaSteps().first(1));
            database.exec(
                "PRAGMA journal_mode = WAL; INSERT INTO asset VALUES (7, randomblob(16), 'f', 'n', NULL)");
        }
        QCOMPARE(library.store().all<Asset>().size(), 1U);
        library.store().all<Asset>()[0]->setCollection(library.addCollection(u"c"_s));
        QCOMPARE(library.reopen().all<Asset>()[0]->collection()->name(), u"c"_s);
        library.close();
        SQLite::Database database(QFile::encodeName(library.storeFile()).toStdString(),
                                  SQLite::OPEN_READWRITE);
        database.exec("UPDATE asset SET name = 'm'");
        database = SQLite::Database(":memory:");
        QVERIFY(library.openingError().endsWith(u"the table “asset” is not as it was saved."_s));
    }

    void captionsCameLater()
    {
        TestLibrary library;
        fill(library);
        const QStringList before = contentsOf(library.store());
        library.close();
        {
            // As a library was before there were captions, with the tallies of its last save.
            SQLite::Database database(QFile::encodeName(library.storeFile()).toStdString(),
                                      SQLite::OPEN_READWRITE);
            database.exec("ALTER TABLE slideshow DROP COLUMN caption; PRAGMA user_version = 2");
        }
        QCOMPARE(contentsOf(library.store()), before);
        library.store().all<Slideshow>()[0]->setCaption(u"Hello 🎉"_s);
        QCOMPARE(library.reopen().all<Slideshow>()[0]->caption(), u"Hello 🎉"_s);
        library.store().all<Slideshow>()[0]->setCaption({});
        library.reopen();
        QCOMPARE(contentsOf(library.store()), before);
    }

    void aCopyTellsWhatCameLater()
    {
        TestLibrary library;
        fill(library);
        QVERIFY(QDir().mkpath(library.location().copyFolder()));
        const LibraryCopy copy{.day = {2026, 3, 1},
                               .file = library.location().copyFolder() + u"/2026-03-01.sqlite"_s};
        QVERIFY(QFile::copy(library.storeFile(), copy.file));
        const qsizetype copied = contentsOf(library.store()).size();
        library.close();
        const auto spoil = [&] {
            library.close();
            QByteArray bytes = readFile(library.storeFile());
            const qsizetype place = bytes.indexOf("asset 7 of 7");
            bytes[place] = static_cast<char>(bytes[place] ^ 1);
            writeFile(library.storeFile(), bytes);
        };
        spoil();
        Result<Recovery> recovery = useCopy(library.location(), copy);
        QVERIFY(recovery);
        QCOMPARE(recovery->records, copied);
        QCOMPARE(recovery->lost, 0);

        library.reopen();
        for (int i = 0; i < 7; ++i)
            library.addCollection(u"later %1"_s.arg(i));
        library.addSlideshow(library.addAsset(u"later"_s), {u"one"_s, u"two"_s}, u"batch"_s);
        spoil();
        recovery = useCopy(library.location(), copy);
        QVERIFY(recovery);
        QCOMPARE(recovery->lost, 7 + 1 + 3);
        QCOMPARE(contentsOf(library.reopen()).size(), copied);
    }
};

QTEST_GUILESS_MAIN(LibraryRecoveryTest)
#include "tst_library_recovery.moc"
