#pragma once

#include <QtCore/QAbstractListModel>

namespace mosslantern {

/// The rows of another list and one more at its end, which has no data: the place of a tile that adds to the
/// list.
class TrailingRowModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit TrailingRowModel(QAbstractListModel &source, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override { return m_source.roleNames(); }

private:
    QAbstractListModel &m_source;
};

} // namespace mosslantern
