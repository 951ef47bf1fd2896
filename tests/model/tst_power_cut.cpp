#include "model/image_files.h"
#include "tests/model/disk_recorder.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QDir>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// What there is to lose: every record, and the picture of each.
QStringList contentsOf(const Store &store)
{
    const auto picture = [](const QUrl &url) {
        return QString::fromLatin1(readFile(url.toLocalFile()).left(20)) +
               QString::number(QFileInfo(url.toLocalFile()).size());
    };
    QStringList contents;
    for (const Asset *asset : store.all<Asset>())
        contents << asset->name() + picture(asset->fileURL());
    for (const Slide *slide : store.all<Slide>())
        contents << slide->text() + picture(slide->imageURL());
    return contents;
}

/// What had been saved after so many operations.
struct Saved
{
    size_t operations;
    QStringList contents;
};

/// Imports, makes slides, changes and removes; a save after each.
std::vector<Saved> work(const QString &folder, const DiskRecorder &recorder)
{
    std::vector<Saved> saves{{0, {}}};
    const auto store = Store::open(LibraryLocation::inFolder(folder + u"/library"_s));
    if (!store)
        qFatal("%s", qPrintable(store.error().message));
    const auto save = [&] {
        if (!(*store)->flush())
            qFatal("not saved");
        saves.push_back({recorder.operations().size(), contentsOf(**store)});
    };
    QTemporaryDir elsewhere;
    for (const QString &name : {u"a.jpg"_s, u"b.jpg"_s}) {
        writeFile(elsewhere.filePath(name), name.toUtf8() + QByteArray(9000, 'p'));
        if (!importAsset(QUrl::fromLocalFile(elsewhere.filePath(name)), **store))
            qFatal("not imported");
    }
    save();
    std::vector<std::unique_ptr<Slide>> slides;
    for (int i = 0; i < 3; ++i)
        slides.push_back(
            std::make_unique<Slide>((*store)->all<Asset>()[0], u"text"_s, QString(), TextStyle::boxed, i));
    auto *const slideshow = (*store)->insert(
        std::make_unique<Slideshow>(std::move(slides), AspectRatio::tiktok, QUuid(), u"batch"_s));
    save();
    for (Slide *slide : slideshow->slides())
        slide->setText(QString(3000, u'x'));
    save();
    (*store)->remove((*store)->all<Asset>()[1]);
    save();
    return saves;
}

} // namespace

class PowerCutTest : public QObject
{
    Q_OBJECT

private slots:
    void everySaveIsWholeAtEveryMoment_data()
    {
        const auto row = table<Unsynced>({"unsynced"});
        row("only the program ends", Unsynced::kept);
        row("all that was not synced is lost", Unsynced::lost);
        row("contents that were not synced are lost", Unsynced::contentsLost);
        row("what was not synced is torn", Unsynced::torn);
    }

    void everySaveIsWholeAtEveryMoment()
    {
        QFETCH(Unsynced, unsynced);
        std::vector<Saved> saves;
        std::vector<DiskOperation> operations;
        {
            const QTemporaryDir folder;
            const DiskRecorder recorder(folder.path());
            saves = work(folder.path(), recorder);
            operations = recorder.operations();
        }
        QCOMPARE(saves.size(), 5U);
        QVERIFY(operations.size() > 60);
        for (size_t count = 0; count <= operations.size(); ++count) {
            const QTemporaryDir folder;
            replay(operations, count, unsynced, folder.path());
            const auto store = Store::open(LibraryLocation::inFolder(folder.filePath(u"library"_s)));
            QVERIFY2(store,
                     qPrintable(u"after %1: %2"_s.arg(count).arg(store ? QString() : store.error().message)));
            const QStringList contents = contentsOf(**store);
            size_t last = 0;
            while (last + 1 < saves.size() && saves[last + 1].operations <= count)
                ++last;
            const bool isLast = contents == saves[last].contents;
            const bool isNext = last + 1 < saves.size() && contents == saves[last + 1].contents;
            QVERIFY2(isLast || isNext, qPrintable(u"after %1 of %2, save %3: %4"_s.arg(count)
                                                      .arg(operations.size())
                                                      .arg(last)
                                                      .arg(contents.join(u'|').left(300))));
        }
    }
};

QTEST_GUILESS_MAIN(PowerCutTest)
#include "tst_power_cut.moc"
