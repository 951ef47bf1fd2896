#include "ui/generator/preview_entry_model.h"

#include "content/slideshow_maker.h"

namespace mosslantern {

PreviewEntryModel::PreviewEntryModel(const LiveQuery<Asset> &source, QRandomGenerator &random,
                                     QObject *parent)
    : QAbstractListModel(parent)
    , m_source(source)
    , m_random(random)
{}

void PreviewEntryModel::setEntries(const QList<SlideText> &entries)
{
    const PictureSource pictures{m_source.records(), &m_random};
    QList<Row> rows;
    rows.reserve(entries.size());
    for (const SlideText &entry : entries) {
        Asset *picture = asset(rows.size());
        if (pictures.isEmpty()) {
            picture = nullptr;
        } else if (m_source.indexOf(picture) < 0) {
            picture = pictures.draw();
            connect(picture, &Record::removed, this, &PreviewEntryModel::forgetRemovedAssets,
                    Qt::UniqueConnection);
        }
        rows.append({entry, picture});
    }
    setRows(rows);
}

void PreviewEntryModel::renewAssets()
{
    QList<SlideText> entries;
    entries.reserve(m_rows.size());
    for (const Row &row : m_rows)
        entries.append(row.entry);
    setEntries(entries);
}

void PreviewEntryModel::forgetRemovedAssets()
{
    QList<Row> rows = m_rows;
    for (Row &row : rows) {
        if (row.asset && !row.asset->store())
            row.asset.clear();
    }
    setRows(rows);
}

void PreviewEntryModel::setRows(const QList<Row> &wanted)
{
    const int had = count();
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
    if (has != had)
        emit countChanged();
    emit assetsChanged();
}

std::optional<SlideText> PreviewEntryModel::entry(qsizetype index) const
{
    if (index < 0 || index >= m_rows.size())
        return {};
    return m_rows[index].entry;
}

QMap<qsizetype, Asset *> PreviewEntryModel::assets() const
{
    QMap<qsizetype, Asset *> assets;
    for (qsizetype i = 0; i < m_rows.size(); ++i) {
        if (Asset *const behind = asset(i))
            assets.insert(i, behind);
    }
    return assets;
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
