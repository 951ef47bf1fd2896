#pragma once

#include "model/asset.h"

#include <QtCore/QIdentityProxyModel>
#include <QtCore/QSet>

namespace mosslantern {

/// Assets of another list, each with a tick that is on or off. A tick belongs to an asset's id and outlives
/// its row.
class AssetPickModel : public QIdentityProxyModel
{
    Q_OBJECT

public:
    /// Roles beside those of the list: "isTicked".
    enum Role { TickedRole = Qt::UserRole + 100 };

    explicit AssetPickModel(QAbstractItemModel &assets, QObject *parent = nullptr);

    /// The ids of the assets whose tick is on.
    const QSet<QUuid> &ticked() const { return m_ticked; }
    void toggle(const QUuid &id);
    /// Takes all ticks off.
    void clear();

    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void tickedChanged();

private:
    void announce();

    QSet<QUuid> m_ticked;
};

} // namespace mosslantern
