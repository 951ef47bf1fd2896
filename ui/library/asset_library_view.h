#pragma once

#include "model/asset.h"
#include "model/error.h"
#include "model/live_query.h"
#include "ui/common/screen_context.h"
#include "ui/common/trailing_row_model.h"

#include <QtCore/QUrl>

#include <optional>

namespace mosslantern {

/// The screen of all imported images.
class AssetLibraryView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(QAbstractItemModel *cells READ cells NOTIFY contextChanged)
    Q_PROPERTY(bool isImporterPresented READ isImporterPresented WRITE setIsImporterPresented NOTIFY
                   isImporterPresentedChanged)

public:
    explicit AssetLibraryView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    /// Once, before anything else.
    void setContext(ScreenContext *context);

    /// All assets, in the store's order.
    const LiveQuery<Asset> &assets() const { return *m_assets; }

    /// The assets and, as the last row, the place of the tile that adds more.
    QAbstractItemModel *cells() { return m_cells ? &*m_cells : nullptr; }

    /// Whether the file picker is shown.
    bool isImporterPresented() const { return m_isImporterPresented; }
    void setIsImporterPresented(bool isPresented);

    /// Imports the picked files one after another, in the background, but for those that cannot be shown.
    void importAssets(const Result<QList<QUrl>> &picked);

    /// Does so with the pictures among files that were dropped on the screen; a folder stands for the
    /// pictures in it, by name. Whether there were any that looked like pictures.
    Q_INVOKABLE bool importDropped(const QList<QUrl> &dropped);

    /// Removes an asset and, before it, every slideshow with a slide that could no longer show its picture.
    Q_INVOKABLE void deleteAsset(mosslantern::Asset *asset);

signals:
    void contextChanged();
    void isImporterPresentedChanged();

private:
    ScreenContext *m_context = nullptr;
    std::optional<LiveQuery<Asset>> m_assets;
    std::optional<TrailingRowModel> m_cells;
    bool m_isImporterPresented = false;
};

} // namespace mosslantern
