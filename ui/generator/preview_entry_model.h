#pragma once

#include "content/slide_content.h"
#include "model/asset.h"
#include "model/live_query.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QMap>
#include <QtCore/QRandomGenerator>

namespace mosslantern {

/// The entries of the slide content with the assets behind them, as the preview shows them. A change of the
/// content touches only the rows that differ, and an entry keeps its asset as long as the source has it.
class PreviewEntryModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Named "mainText", "subtitle" and "asset".
    enum Role { MainTextRole = Qt::UserRole, SubtitleRole, AssetRole };

    /// New entries draw assets from `source` with `random`; both outlive the model.
    PreviewEntryModel(const LiveQuery<Asset> &source, QRandomGenerator &random, QObject *parent = nullptr);

    void setEntries(const QList<SlideText> &entries);

    /// Gives entries whose asset has left the source another one.
    void renewAssets();

    int count() const { return static_cast<int>(m_rows.size()); }

    /// Nothing where there is no entry.
    std::optional<SlideText> entry(qsizetype index) const;

    /// Null where there is none and for one that has been removed.
    Asset *asset(qsizetype entry) const { return m_rows.value(entry).asset; }

    /// All of them, by the places of their entries.
    QMap<qsizetype, Asset *> assets() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void assetsChanged();

private:
    struct Row
    {
        SlideText entry;
        QPointer<Asset> asset;

        friend bool operator==(const Row &, const Row &) = default;
    };

    void setRows(const QList<Row> &wanted);
    void forgetRemovedAssets();

    const LiveQuery<Asset> &m_source;
    QRandomGenerator &m_random;
    QList<Row> m_rows;
};

} // namespace mosslantern
