#include "ui/library/asset_pick_model.h"

#include "model/live_query.h"

namespace mosslantern {

AssetPickModel::AssetPickModel(QAbstractItemModel &assets, QObject *parent)
    : QIdentityProxyModel(parent)
{
    setSourceModel(&assets);
}

void AssetPickModel::toggle(const QUuid &id)
{
    if (!m_ticked.remove(id))
        m_ticked.insert(id);
    announce();
}

void AssetPickModel::clear()
{
    if (m_ticked.isEmpty())
        return;
    m_ticked.clear();
    announce();
}

QVariant AssetPickModel::data(const QModelIndex &index, int role) const
{
    if (role != TickedRole)
        return QIdentityProxyModel::data(index, role);
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto *const asset = qobject_cast<Asset *>(index.data(LiveQueryBase::RecordRole).value<QObject *>());
    return m_ticked.contains(asset->id());
}

QHash<int, QByteArray> AssetPickModel::roleNames() const
{
    QHash<int, QByteArray> names = sourceModel()->roleNames();
    names.insert(TickedRole, "isTicked");
    return names;
}

void AssetPickModel::announce()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {TickedRole});
    emit tickedChanged();
}

} // namespace mosslantern
