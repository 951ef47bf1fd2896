#include "model/collection.h"
#include "model/live_query.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// What a view would show that knows nothing but a model's row signals.
class Mirror : public QObject
{
public:
    explicit Mirror(LiveQueryBase &model)
        : m_model(model)
        , m_tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        reload();
        connect(&model, &QAbstractItemModel::modelReset, this, &Mirror::reload);
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this](const QModelIndex &, int first, int last) {
                    for (int row = first; row <= last; ++row)
                        m_shown.insert(row, recordAt(row));
                    ++m_signals;
                });
        connect(&model, &QAbstractItemModel::rowsRemoved, this,
                [this](const QModelIndex &, int first, int last) {
                    m_shown.remove(first, last - first + 1);
                    ++m_signals;
                });
        connect(&model, &QAbstractItemModel::rowsMoved, this,
                [this](const QModelIndex &, int from, int, const QModelIndex &, int to) {
                    m_shown.move(from, to > from ? to - 1 : to);
                    ++m_signals;
                });
    }

    const QList<QObject *> &shown() const { return m_shown; }
    int takeSignals() { return std::exchange(m_signals, 0); }

private:
    QObject *recordAt(int row) const
    {
        return m_model.data(m_model.index(row), LiveQueryBase::RecordRole).value<QObject *>();
    }

    void reload()
    {
        m_shown.clear();
        for (int row = 0; row < m_model.count(); ++row)
            m_shown << recordAt(row);
        ++m_signals;
    }

    LiveQueryBase &m_model;
    QAbstractItemModelTester m_tester;
    QList<QObject *> m_shown;
    int m_signals = 0;
};

/// What the query should show, worked out from nothing.
template <typename T>
QList<QObject *> naive(const Store &store, const typename LiveQuery<T>::Filter &filter,
                       const typename LiveQuery<T>::Order &order)
{
    std::vector<T *> records = filter ? store.fetch<T>(filter) : store.all<T>();
    if (order)
        std::ranges::stable_sort(records, [&](const T *a, const T *b) { return order(*a, *b); });
    return {records.begin(), records.end()};
}

bool nameComesBefore(const Collection &a, const Collection &b)
{
    return a.name() < b.name();
}

QStringList names(const LiveQuery<Collection> &query)
{
    return textsOf(query.records(), &Collection::name);
}

} // namespace

class LiveQueryTest : public QObject
{
    Q_OBJECT

private slots:
    void showsExactSignals()
    {
        TestLibrary library;
        Store &store = library.store();
        LiveQuery<Collection> query(
            store, [](const Collection &c) { return c.name() != u"hidden"_s; }, nameComesBefore);
        Mirror mirror(query);
        library.addCollection(u"b"_s);
        Collection *const d = library.addCollection(u"d"_s);
        library.addCollection(u"a"_s);
        library.addCollection(u"hidden"_s);
        Collection *const secondB = library.addCollection(u"b"_s);
        QCOMPARE(names(query), (QStringList{u"a"_s, u"b"_s, u"b"_s, u"d"_s}));
        QCOMPARE(query.at(2), secondB); // equal names in the store's order
        QCOMPARE(query.indexOf(d), 3);

        const QSignalSpy inserted(&query, &QAbstractItemModel::rowsInserted);
        const QSignalSpy removed(&query, &QAbstractItemModel::rowsRemoved);
        const QSignalSpy moved(&query, &QAbstractItemModel::rowsMoved);
        const QSignalSpy changed(&query, &QAbstractItemModel::dataChanged);
        d->setName(u"c"_s);
        QCOMPARE(moved.count(), 0);
        QCOMPARE(changed.count(), 1);
        d->setName(u"0"_s);
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved[0][1].toInt(), 3);
        QCOMPARE(moved[0][4].toInt(), 0);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed[1][0].toModelIndex().row(), 0);
        d->setName(u"hidden"_s);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(query.indexOf(d), -1);
        d->setName(u"z"_s);
        QCOMPARE(inserted.count(), 1);
        library.addAsset(u"x"_s, d); // a relation counts as a change, too
        QCOMPARE(changed.count(), 3);
        store.remove(d);
        QCOMPARE(removed.count(), 2);
        QCOMPARE(query.roleNames().value(LiveQueryBase::RecordRole), "record");
        library.close();
        QCOMPARE(query.count(), 0);
        QVERIFY(mirror.shown().isEmpty());
        query.setFilter({});
    }

    void agreesWithEvaluationFromNothing_data()
    {
        table<quint32>({"seed"});
        for (quint32 seed = 1; seed <= 6; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    /// Collections by name, filtered by the number of their assets; assets filtered by their collection.
    void agreesWithEvaluationFromNothing()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        TestLibrary library;
        Store &store = library.store();
        LiveQuery<Collection>::Filter collectionFilter;
        const LiveQuery<Collection>::Order collectionOrder = nameComesBefore;
        LiveQuery<Collection> collections(store, {}, collectionOrder);
        LiveQuery<Asset>::Filter assetFilter = [](const Asset &asset) {
            return asset.collection() != nullptr;
        };
        LiveQuery<Asset> assets(store, assetFilter);
        const LiveQuery<Asset>::Order byCollection = [](const Asset &a, const Asset &b) {
            return (a.collection() ? a.collection()->row() : 0) >
                   (b.collection() ? b.collection()->row() : 0);
        };
        LiveQuery<Asset> grouped(store, {}, byCollection);
        Mirror shownCollections(collections);
        Mirror shownAssets(assets);
        Mirror shownGroups(grouped);

        const auto any = [&](const auto &records) {
            return records.empty() ? nullptr : records[random.bounded(static_cast<quint32>(records.size()))];
        };
        const auto anyCollection = [&] { return any(store.all<Collection>()); };
        const auto randomName = [&] { return QString(QChar(u'a' + random.bounded(6))); };
        for (int step = 0; step < 1500; ++step) {
            switch (random.bounded(9)) {
            case 0:
            case 1:
                library.addCollection(randomName());
                break;
            case 2:
                if (Collection *const collection = anyCollection())
                    collection->setName(randomName());
                break;
            case 3:
            case 4:
                library.addAsset(randomName(), random.bounded(3) == 0 ? nullptr : anyCollection());
                break;
            case 5:
                if (Asset *const asset = any(store.all<Asset>()))
                    asset->setCollection(anyCollection());
                break;
            case 6:
                if (Asset *const asset = any(store.all<Asset>()))
                    store.remove(asset);
                break;
            case 7:
                if (Collection *const collection = anyCollection(); collection && random.bounded(2) == 0)
                    store.remove(collection);
                break;
            case 8: {
                const int remainder = random.bounded(3);
                collectionFilter = [remainder](const Collection &c) {
                    return c.assets().size() % 3 != remainder;
                };
                collections.setFilter(collectionFilter);
                assetFilter = [remainder](const Asset &asset) {
                    return asset.collection() && asset.row() % 3 != remainder;
                };
                assets.setFilter(assetFilter);
                break;
            }
            }
            if (step % 50 == 0)
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(shownCollections.shown(), naive<Collection>(store, collectionFilter, collectionOrder));
            QCOMPARE(shownAssets.shown(), naive<Asset>(store, assetFilter, {}));
            QCOMPARE(shownGroups.shown(), naive<Asset>(store, {}, byCollection));
        }
        QVERIFY(collections.count() > 0 && assets.count() > 0);
    }

    void newFilterComesAsRunsOfRows()
    {
        TestLibrary library;
        for (int i = 0; i < 3000; ++i)
            library.addAsset(QString::number(i));
        LiveQuery<Asset> query(library.store());
        Mirror mirror(query);
        mirror.takeSignals();
        query.setFilter([](const Asset &asset) { return asset.row() <= 100 || asset.row() > 2900; });
        QCOMPARE(mirror.takeSignals(), 1);
        query.setFilter([](const Asset &asset) { return asset.row() > 50 && asset.row() <= 2950; });
        QCOMPARE(mirror.takeSignals(), 3);
        query.setFilter([](const Asset &asset) { return asset.row() % 2 == 0; });
        QCOMPARE(mirror.takeSignals(), 1); // a reset: too many runs
        QCOMPARE(query.count(), 1500);
        QCOMPARE(mirror.shown().size(), 1500);
    }

    void newestComeFirst()
    {
        TestLibrary library;
        LiveQuery<Collection> query(library.store(), {}, newestFirst<Collection>);
        QStringList inserted;
        for (int i = 0; i < 20; ++i) { // several in one millisecond
            inserted.prepend(QString::number(i));
            library.addCollection(inserted[0]);
        }
        QCOMPARE(names(query), inserted);
    }

    void watchersMayChangeTheStore()
    {
        TestLibrary library;
        Store &store = library.store();
        auto doomed = std::make_unique<LiveQuery<Collection>>(store);
        LiveQuery<Collection> first(store);
        std::unique_ptr<LiveQuery<Collection>> made;
        LiveQuery<Collection> last(store, {}, nameComesBefore);
        Mirror mirror(last);

        // Told before the last, it destroys the one before it, removes what is not yet shown, adds something,
        // and makes a query.
        connect(&first, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex &, int row) {
            doomed.reset();
            Collection *const collection = first.at(row);
            if (collection->name() != u"remove me"_s)
                return;
            store.remove(collection);
            library.addCollection(u"instead"_s);
            made = std::make_unique<LiveQuery<Collection>>(store);
        });
        library.addCollection(u"z"_s);
        QCOMPARE(names(last), QStringList(u"z"_s));
        library.addCollection(u"remove me"_s);
        QCOMPARE(names(last), (QStringList{u"instead"_s, u"z"_s}));
        QCOMPARE(names(*made), (QStringList{u"z"_s, u"instead"_s}));
        QCOMPARE(mirror.shown().size(), 2);

        // A change in the middle of showing a new filter.
        connect(&last, &QAbstractItemModel::rowsRemoved, this, [&] {
            if (store.all<Collection>().size() == 2)
                library.addCollection(u"added"_s);
        });
        const auto isNotZ = [](const Collection &collection) { return collection.name() != u"z"_s; };
        last.setFilter(isNotZ);
        QCOMPARE(names(last), (QStringList{u"added"_s, u"instead"_s}));
        QCOMPARE(mirror.shown(), naive<Collection>(store, isNotZ, nameComesBefore));
    }
};

QTEST_GUILESS_MAIN(LiveQueryTest)
#include "tst_live_query.moc"
