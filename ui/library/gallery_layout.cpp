#include "ui/library/gallery_layout.h"

#include "model/slideshow.h"

#include <algorithm>
#include <cmath>

namespace mosslantern {

namespace {

/// Of things below one another, those that reach into a range of heights.
template <typename T, typename Top, typename Bottom>
std::span<const T> between(const std::vector<T> &things, double top, double bottom, Top topOf,
                           Bottom bottomOf)
{
    const auto first = std::ranges::partition_point(things, [&](const T &t) { return bottomOf(t) <= top; });
    const auto last =
        std::partition_point(first, things.end(), [&](const T &t) { return topOf(t) < bottom; });
    return {first, last};
}

double cardHeight(const Slideshow &slideshow, double width, const GalleryMetrics &metrics)
{
    const double shape = widthToHeight(slideshow.aspectRatio().value_or(AspectRatio::tiktok));
    return std::round(width / shape) + metrics.barHeight;
}

} // namespace

GalleryLayout::GalleryLayout(const QList<BatchGroup> &groups, double width, const GalleryMetrics &metrics)
{
    const double available = std::max(0.0, width - 2 * metrics.padding);
    const double spacing = metrics.gridSpacing;
    const int columnCount =
        std::max(1, static_cast<int>((available + spacing) / (metrics.minimumColumnWidth + spacing)));
    const double widest =
        std::min(metrics.maximumColumnWidth, (available - (columnCount - 1) * spacing) / columnCount);
    Columns columns{.width = std::floor(widest), .step = widest + spacing, .left = metrics.padding};
    columns.left += (available - columnCount * columns.step + spacing) / 2;

    double y = metrics.padding;
    for (const BatchGroup &group : groups) {
        const double top = y;
        m_headers.push_back({group.name, static_cast<int>(group.slideshows.size()),
                             QRectF(metrics.padding, y, available, metrics.headerHeight)});
        y += metrics.headerHeight + metrics.headerPadding;
        for (qsizetype first = 0; first < group.slideshows.size(); first += columnCount) {
            Row row{.top = y,
                    .bottom = y,
                    .firstCard = static_cast<int>(m_cards.size()),
                    .count = 0,
                    .shownFrom = first == 0 ? top : y};
            addRow(group.slideshows.mid(first, columnCount), row, columns, metrics);
            y = m_rows.back().bottom + spacing;
        }
        y += metrics.sectionSpacing - spacing;
    }
    m_height = groups.isEmpty() ? 0 : y - metrics.sectionSpacing + metrics.padding;
}

void GalleryLayout::addRow(const QList<Slideshow *> &slideshows, Row row, const Columns &columns,
                           const GalleryMetrics &metrics)
{
    double height = 0;
    for (const Slideshow *slideshow : slideshows)
        height = std::max(height, cardHeight(*slideshow, columns.width, metrics));
    double x = columns.left;
    for (Slideshow *slideshow : slideshows) {
        const double own = cardHeight(*slideshow, columns.width, metrics);
        m_cards.push_back(
            {slideshow, slideshow->id(),
             QRectF(std::round(x), row.top + std::floor((height - own) / 2), columns.width, own),
             static_cast<int>(m_rows.size())});
        x += columns.step;
    }
    row.bottom = row.top + height;
    row.count = static_cast<int>(slideshows.size());
    m_rows.push_back(row);
}

std::span<const GalleryLayout::Header> GalleryLayout::headersBetween(double top, double bottom) const
{
    return between(
        m_headers, top, bottom, [](const Header &header) { return header.rect.top(); },
        [](const Header &header) { return header.rect.bottom(); });
}

std::span<const GalleryLayout::Card> GalleryLayout::cardsBetween(double top, double bottom) const
{
    const auto rows = between(
        m_rows, top, bottom, [](const Row &row) { return row.top; },
        [](const Row &row) { return row.bottom; });
    if (rows.empty())
        return {};
    const int first = rows.front().firstCard;
    const int end = rows.back().firstCard + rows.back().count;
    return std::span(m_cards).subspan(static_cast<size_t>(first), static_cast<size_t>(end - first));
}

int GalleryLayout::indexOf(const QUuid &id) const
{
    const auto found = std::ranges::find(m_cards, id, &Card::id);
    return found == m_cards.end() ? -1 : static_cast<int>(found - m_cards.begin());
}

int GalleryLayout::cardInRow(int card, int by) const
{
    const int from = m_cards[static_cast<size_t>(card)].row;
    const int column = card - m_rows[static_cast<size_t>(from)].firstCard;
    const Row &row =
        m_rows[static_cast<size_t>(std::clamp(from + by, 0, static_cast<int>(m_rows.size()) - 1))];
    return row.firstCard + std::min(column, row.count - 1);
}

QRectF GalleryLayout::surroundings(int card) const
{
    const Card &shown = m_cards[static_cast<size_t>(card)];
    const Row &row = m_rows[static_cast<size_t>(shown.row)];
    return {QPointF(shown.rect.left(), row.shownFrom), QPointF(shown.rect.right(), row.bottom)};
}

} // namespace mosslantern
