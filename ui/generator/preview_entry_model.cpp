#include "ui/generator/preview_entry_model.h"

namespace mosslantern {

PreviewEntryModel::PreviewEntryModel(const SlideshowGenerator &generator, QObject *parent)
    : QAbstractListModel(parent)
    , m_generator(generator)
    , m_rows(wantedRows())
{
    connect(&generator, &SlideshowGenerator::entriesChanged, this, &PreviewEntryModel::update);
    connect(&generator, &SlideshowGenerator::previewAssetMappingChanged, this, &PreviewEntryModel::update);
}

QList<PreviewEntryModel::Row> PreviewEntryModel::wantedRows() const
{
    QList<Row> rows;
    rows.reserve(m_generator.entries().size());
    for (const SlideText &entry : m_generator.entries())
        rows.append({entry, m_generator.previewAsset(rows.size())});
    return rows;
}

void PreviewEntryModel::update()
{
    const QList<Row> wanted = wantedRows();
    const int had = static_cast<int>(m_rows.size());
    const int has = static_cast<int>(wanted.size());
    if (has < had) {
        beginRemoveRows({}, has, had - 1);
        m_rows.resize(has);
        endRemoveRows();
    }
    for (int row = 0; row < std::min(had, has); ++row) {
        if (m_rows[row] == wanted[row])
            continue;
        m_rows[row] = wanted[row];
        emit dataChanged(index(row), index(row));
    }
    if (has > had) {
        beginInsertRows({}, had, has - 1);
        m_rows = wanted;
        endInsertRows();
    }
}

int PreviewEntryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant PreviewEntryModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case MainTextRole:
        return row.entry.main;
    case SubtitleRole:
        return row.entry.subtitle;
    case AssetRole:
        return QVariant::fromValue(row.asset.data());
    default:
        return {};
    }
}

QHash<int, QByteArray> PreviewEntryModel::roleNames() const
{
    return {{MainTextRole, "mainText"}, {SubtitleRole, "subtitle"}, {AssetRole, "asset"}};
}

} // namespace mosslantern
