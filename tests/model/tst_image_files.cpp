#include "model/collection.h"
#include "model/image_files.h"
#include "model/partial_file.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

#include <sys/wait.h>
#include <unistd.h>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr auto uuidPattern = "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"_L1;

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

Result<Asset *> importFile(TestLibrary &library, const QString &path)
{
    return importAsset(QUrl::fromLocalFile(path), library.store());
}

} // namespace

class ImageFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void importKeepsNameAndExtension_data()
    {
        const auto row = table<QString, QString>({"name", "extension"});
        row("case", u"Sunset.JPG"_s, u"JPG"_s);
        row("two full stops", u"archive.tar.gz"_s, u"gz"_s);
        row("no extension", u"picture"_s, u""_s);
        row("full stop at the end", u"name."_s, u""_s);
        row("hidden", u".hidden"_s, u""_s);
        row("hidden with extension", u".hidden.png"_s, u"png"_s);
        row("unicode", u"Bäume 🌳 100% #1?.ЖПГ"_s, u"ЖПГ"_s);
        row("spaces", u" a b .j p g "_s, u"j p g "_s);
    }

    void importKeepsNameAndExtension()
    {
        QFETCH(QString, name);
        QFETCH(QString, extension);
        TestLibrary library;
        QByteArray bytes;
        for (int i = 0; i < 700'000; ++i)
            bytes.append(static_cast<char>(i * 31 >> 3));
        const QString source = library.writeFile(name, bytes);
        QVERIFY(QFile::setPermissions(source, QFile::ReadOwner));

        const ConsoleCapture console;
        const auto first = importFile(library, source);
        const auto second = importFile(library, source);
        QVERIFY(first && second);
        QCOMPARE((*first)->name(), name);
        QCOMPARE((*first)->collection(), nullptr);
        const QRegularExpression expected(
            u"^%1\\.%2$"_s.arg(uuidPattern, QRegularExpression::escape(extension)));
        for (const Asset *asset : {*first, *second}) {
            QVERIFY2(expected.match(asset->filename()).hasMatch(), qPrintable(asset->filename()));
            const QString copy = library.location().assetFolder() + u'/' + asset->filename();
            QCOMPARE(asset->fileURL(), QUrl::fromLocalFile(copy));
            QVERIFY(readFile(copy) == bytes);
            QCOMPARE(modeOf(copy), 0600);
        }
        QCOMPARE(namesIn(library.location().assetFolder()).size(), 2);
        QCOMPARE(console.lines(), QStringList());
        QVERIFY(library.location().assetFolder().endsWith(u"/library/Assets"_s));
    }

    void failedImportPrintsTheReason_data()
    {
        const auto row = table<QUrl, QString>({"file", "reason"});
        row("missing", QUrl(u"file:///nowhere/x.png"_s),
            u"“/nowhere/x.png” could not be read: No such file or directory"_s);
        row("folder", QUrl(u"file:///tmp"_s), u"“/tmp” could not be read: Is a directory"_s);
        row("device", QUrl(u"file:///dev/null"_s), u"“/dev/null” could not be read: Invalid argument"_s);
        const QString longName = u"x."_s + QString(240, u'j');
        row("long extension", QUrl::fromLocalFile(u"/"_s + longName),
            u"The extension of “%1” is too long."_s.arg(longName));
        row("remote", QUrl(u"https://example.org/x.png"_s),
            u"“https://example.org/x.png” is not a file on this computer."_s);
    }

    void failedImportPrintsTheReason()
    {
        QFETCH(QUrl, file);
        QFETCH(QString, reason);
        TestLibrary library;
        const ConsoleCapture console;
        const auto imported = importAsset(file, library.store());
        QVERIFY(!imported);
        QCOMPARE(imported.error().message, reason);
        QCOMPARE(console.lines(), QStringList(u"Failed to copy asset: "_s + reason));
        QVERIFY(library.store().all<Asset>().empty());
        QVERIFY(namesIn(library.location().assetFolder()).isEmpty());
    }

    void unusableFolders()
    {
        const TestLibrary library;
        const QString picture = library.writeFile(u"x.png"_s, "picture");
        library.writeFile(u"taken"_s, "a file, not a folder");
        for (const auto &[documents, reason] :
             {std::pair(library.path(u"taken"_s), u"could not be created: Not a directory"_s),
              std::pair(QString(), u"There is no documents folder."_s)}) {
            const auto store = Store::open(LibraryLocation(library.path(u"store.sqlite"_s), documents));
            QVERIFY(store);
            const ConsoleCapture console;
            QVERIFY(!importAsset(QUrl::fromLocalFile(picture), **store));
            Asset *const asset = (*store)->insert(std::make_unique<Asset>(u"f.png"_s, u"x.png"_s, nullptr));
            QVERIFY(!copySlideImage(*asset));
            (*store)->remove(asset);
            QCOMPARE(console.lines().size(), 2);
            QVERIFY2(console.lines()[0].endsWith(reason), qPrintable(console.lines()[0]));
            QVERIFY(console.lines()[1].startsWith(u"Failed to copy slide image: "_s));
        }
    }

    void diskFullLeavesNoFile()
    {
        TestLibrary library;
        const QString picture = library.writeFile(u"x.png"_s, QByteArray(600'000, 'x'));
        library.store();
        const ConsoleCapture console;
        {
            const FullDisk full(300'000);
            QVERIFY(!importFile(library, picture));
        }
        QVERIFY(console.lines()[0].endsWith(u"could not be written: File too large"_s));
        QVERIFY(namesIn(library.location().assetFolder()).isEmpty());
    }

    void whatAKillLeavesIsRemoved()
    {
        const TestLibrary library;
        const QString folder = library.path(u"."_s);
        QCOMPARE(library.writeFile(u".mosslantern-notes.partial"_s, "somebody's"),
                 library.path(u".mosslantern-notes.partial"_s));
        int ready[2];
        QCOMPARE(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const PartialFile file(folder, 0600);
            ::_exit(::write(ready[1], "x", 1) == 1 ? ::pause() : 1);
        }
        char byte = 0;
        QCOMPARE(::read(ready[0], &byte, 1), 1);
        removeAbandonedFiles(folder);
        QCOMPARE(namesIn(folder).size(), 2);
        QCOMPARE(::kill(child, SIGKILL), 0);
        QCOMPARE(::waitpid(child, nullptr, 0), child);
        removeAbandonedFiles(folder);
        QCOMPARE(namesIn(folder), QStringList(u".mosslantern-notes.partial"_s));
        ::close(ready[0]);
        ::close(ready[1]);
    }

    void everySlideHasItsOwnImage()
    {
        TestLibrary library;
        const auto asset = importFile(library, library.writeFile(u"Sunset.JPG"_s, "picture"));
        QVERIFY(asset);
        Slideshow *const slideshow = library.addSlideshow(*asset, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
        const QString folder = library.location().slideImageFolder();
        QCOMPARE(namesIn(folder).size(), 5);
        const QString assetFile = (*asset)->fileURL().toLocalFile();
        QVERIFY(QFile::remove(assetFile));
        for (const Slide *slide : slideshow->slides()) {
            QVERIFY(slide->imageFilename()->endsWith(u".JPG"_s));
            QCOMPARE(slide->imageURL(), QUrl::fromLocalFile(folder + u'/' + *slide->imageFilename()));
            QCOMPARE(readFile(slide->imageURL().toLocalFile()), "picture");
        }

        // The asset's file is gone: the slides are made all the same, and show the asset's place.
        const ConsoleCapture console;
        const Slide slide(*asset, u"text"_s, u""_s, TextStyle::boxed, 0);
        QVERIFY(!slide.imageFilename());
        QCOMPARE(slide.imageURL(), (*asset)->fileURL());
        QCOMPARE(console.lines(), QStringList(u"Failed to copy slide image: “%1” could not be read: "
                                              "No such file or directory"_s.arg(assetFile)));

        // No removal touches a file.
        library.store().remove(slideshow);
        library.reopen();
        QCOMPARE(namesIn(folder).size(), 5);
    }

    void imageOfASlideBeforeItsInsertion()
    {
        TestLibrary library;
        const auto asset = importFile(library, library.writeFile(u"x.png"_s, "picture"));
        QVERIFY(asset);
        const Slide slide(*asset, u"text"_s, u""_s, TextStyle::boxed, 0);
        QCOMPARE(readFile(slide.imageURL().toLocalFile()), "picture");

        const ConsoleCapture console;
        Asset loose(u"x.png"_s, u"loose"_s, nullptr);
        QCOMPARE(loose.fileURL(), QUrl());
        QVERIFY(!Slide(&loose, u""_s, u""_s, TextStyle::boxed, 0).imageFilename());
        QCOMPARE(console.lines(),
                 QStringList(u"Failed to copy slide image: The asset “loose” is in no library."_s));
    }
};

QTEST_GUILESS_MAIN(ImageFilesTest)
#include "tst_image_files.moc"
