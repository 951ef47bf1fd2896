#include "ui/common/trailing_row_model.h"

namespace mosslantern {

TrailingRowModel::TrailingRowModel(QAbstractListModel &source, QObject *parent)
    : QAbstractListModel(parent)
    , m_source(source)
{
    const auto follow = [this, &source](auto signal, auto handler) {
        connect(&source, signal, this, handler);
    };
    using Model = QAbstractItemModel;
    follow(&Model::rowsAboutToBeInserted,
           [this](const QModelIndex &, int first, int last) { beginInsertRows({}, first, last); });
    follow(&Model::rowsInserted, [this] { endInsertRows(); });
    follow(&Model::rowsAboutToBeRemoved,
           [this](const QModelIndex &, int first, int last) { beginRemoveRows({}, first, last); });
    follow(&Model::rowsRemoved, [this] { endRemoveRows(); });
    follow(&Model::rowsAboutToBeMoved, [this](const QModelIndex &, int first, int last, const QModelIndex &,
                                              int to) { beginMoveRows({}, first, last, {}, to); });
    follow(&Model::rowsMoved, [this] { endMoveRows(); });
    follow(&Model::modelAboutToBeReset, [this] { beginResetModel(); });
    follow(&Model::modelReset, [this] { endResetModel(); });
    follow(&Model::dataChanged,
           [this](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
               emit dataChanged(index(from.row()), index(to.row()), roles);
           });
}

int TrailingRowModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_source.rowCount() + 1;
}

QVariant TrailingRowModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return index.row() < m_source.rowCount() ? m_source.index(index.row(), 0).data(role)
                                             : QVariant::fromValue<QObject *>(nullptr);
}

} // namespace mosslantern
