#include "ui/library/gallery_cells.h"

#include "model/slideshow.h"

#include <algorithm>

namespace mosslantern {

bool GalleryCells::show(std::span<const GalleryLayout::Header> headers, int most)
{
    std::vector<Cell> wanted;
    for (const GalleryLayout::Header &header : headers)
        wanted.push_back(
            {.name = header.name, .count = header.count, .id = {}, .slideshow = {}, .place = header.rect});
    return show(std::move(wanted), most);
}

bool GalleryCells::show(std::span<const GalleryLayout::Card> cards, int most)
{
    std::vector<Cell> wanted;
    for (const GalleryLayout::Card &card : cards)
        wanted.push_back(
            {.name = {}, .count = 0, .id = card.id, .slideshow = card.slideshow, .place = card.rect});
    return show(std::move(wanted), most);
}

bool GalleryCells::show(std::vector<Cell> wanted, int most)
{
    const auto isShown = [this](const Cell &cell) {
        return std::ranges::any_of(m_cells, [&](const Cell &other) { return other.isSameAs(cell); });
    };
    const size_t all = wanted.size();
    std::erase_if(wanted, [&](const Cell &cell) { return !isShown(cell) && most-- <= 0; });
    const auto isWanted = [&](const Cell &cell) {
        return std::ranges::any_of(wanted, [&](const Cell &other) { return other.isSameAs(cell); });
    };
    for (int row = static_cast<int>(m_cells.size()) - 1; row >= 0; --row) {
        if (isWanted(m_cells[static_cast<size_t>(row)]))
            continue;
        beginRemoveRows({}, row, row);
        m_cells.erase(m_cells.begin() + row);
        endRemoveRows();
    }
    for (size_t i = 0; i < wanted.size(); ++i) {
        const int row = static_cast<int>(i);
        const auto here = m_cells.begin() + row;
        const auto found =
            std::find_if(here, m_cells.end(), [&](const Cell &cell) { return cell.isSameAs(wanted[i]); });
        if (found == m_cells.end()) {
            beginInsertRows({}, row, row);
            m_cells.insert(here, wanted[i]);
            endInsertRows();
            continue;
        }
        if (found != here) {
            const int from = static_cast<int>(found - m_cells.begin());
            beginMoveRows({}, from, from, {}, row);
            std::rotate(here, found, found + 1);
            endMoveRows();
        }
        if (m_cells[i] == wanted[i])
            continue;
        m_cells[i] = wanted[i];
        emit dataChanged(index(row), index(row));
    }
    return wanted.size() == all;
}

int GalleryCells::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_cells.size());
}

QVariant GalleryCells::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Cell &cell = m_cells[static_cast<size_t>(index.row())];
    switch (role) {
    case NameRole:
        return cell.name;
    case CountRole:
        return cell.count;
    case SlideshowRole:
        return QVariant::fromValue(cell.slideshow.data());
    case PlaceRole:
        return cell.place;
    default:
        return {};
    }
}

QHash<int, QByteArray> GalleryCells::roleNames() const
{
    return {{NameRole, "name"}, {CountRole, "count"}, {SlideshowRole, "slideshow"}, {PlaceRole, "place"}};
}

} // namespace mosslantern
