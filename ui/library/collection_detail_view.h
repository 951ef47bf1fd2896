#pragma once

#include "model/collection.h"
#include "model/live_query.h"
#include "ui/common/screen_context.h"
#include "ui/library/asset_pick_model.h"

#include <QtCore/QPointer>

#include <optional>

namespace mosslantern {

/// One collection: its assets, and the sheet that adds others. Lives no longer than the collection.
class CollectionDetailView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(mosslantern::Collection *collection READ collection WRITE setCollection NOTIFY
                   collectionChanged REQUIRED)
    Q_PROPERTY(mosslantern::LiveQueryBase *members READ members NOTIFY collectionChanged)
    Q_PROPERTY(mosslantern::LiveQueryBase *availableAssets READ availableModel NOTIFY collectionChanged)
    Q_PROPERTY(QAbstractItemModel *picks READ picks NOTIFY collectionChanged)
    Q_PROPERTY(bool isAddingAssets READ isAddingAssets WRITE setIsAddingAssets NOTIFY isAddingAssetsChanged)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY selectedAssetIDsChanged)

public:
    explicit CollectionDetailView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    void setContext(ScreenContext *context);

    Collection *collection() const { return m_collection; }
    /// Once; the context comes first or after it.
    void setCollection(Collection *collection);

    /// The assets of the collection, in the store's order.
    LiveQueryBase *members() { return m_members ? &*m_members : nullptr; }

    /// The assets that are not in the collection, in the store's order.
    const LiveQuery<Asset> &availableAssets() const { return *m_availableAssets; }

    /// The same with ticks, for the sheet.
    QAbstractItemModel *picks() { return m_picks ? &*m_picks : nullptr; }

    /// Whether the sheet is shown.
    bool isAddingAssets() const { return m_isAddingAssets; }
    void setIsAddingAssets(bool isAdding);

    /// The assets that are ticked in the sheet, by id.
    const QSet<QUuid> &selectedAssetIDs() const { return m_picks->ticked(); }
    Q_INVOKABLE void toggle(mosslantern::Asset *asset);

    /// Whether anything is ticked.
    bool canAdd() const { return m_picks && !selectedAssetIDs().isEmpty(); }

    /// Moves the ticked assets that are still available into the collection. Closes the sheet, as
    /// cancelAdding() does without adding; both forget the ticks.
    Q_INVOKABLE void addSelected();
    Q_INVOKABLE void cancelAdding();

    /// The asset stays in the library.
    Q_INVOKABLE void removeFromCollection(mosslantern::Asset *asset);

signals:
    void contextChanged();
    void collectionChanged();
    void isAddingAssetsChanged();
    void selectedAssetIDsChanged();

private:
    LiveQueryBase *availableModel() { return m_availableAssets ? &*m_availableAssets : nullptr; }
    void makeQueries();

    ScreenContext *m_context = nullptr;
    QPointer<Collection> m_collection;
    std::optional<LiveQuery<Asset>> m_members;
    std::optional<LiveQuery<Asset>> m_availableAssets;
    std::optional<AssetPickModel> m_picks;
    bool m_isAddingAssets = false;
};

} // namespace mosslantern
