#include "ui/library/gallery_grid.h"

#include "model/change.h"
#include "model/slideshow.h"

#include <algorithm>
#include <limits>

namespace mosslantern {

namespace {

/// How far beyond the view cells are made, so that scrolling finds them drawn.
constexpr double reserve = 240;

/// How many cards are made for one frame while scrolling, and how long until the next.
constexpr int newCardsInFrame = 2;
constexpr int frame = 8;

size_t place(int index)
{
    return static_cast<size_t>(index);
}

/// Whether a card of the layout that was is in the next one, too.
bool stays(const GalleryLayout::Card &card)
{
    return card.slideshow && card.slideshow->store();
}

} // namespace

GalleryGrid::GalleryGrid(QObject *parent)
    : QObject(parent)
{
    m_nextFrame.setSingleShot(true);
    m_nextFrame.setInterval(frame);
    m_nextFrame.callOnTimeout(this, [this] { showCells(Making::some); });
}

void GalleryGrid::setGallery(GalleryView *gallery)
{
    Q_ASSERT(!m_gallery && gallery);
    m_gallery = gallery;
    const auto follow = [this] {
        const LiveQuery<Slideshow> &slideshows = m_gallery->slideshows();
        connect(&slideshows, &QAbstractItemModel::rowsInserted, this, &GalleryGrid::rebuildLater);
        connect(&slideshows, &QAbstractItemModel::rowsRemoved, this, &GalleryGrid::rebuildLater);
        connect(&slideshows, &QAbstractItemModel::modelReset, this, &GalleryGrid::rebuildLater);
        rebuild();
    };
    connect(gallery, &GalleryView::batchWillBeDeleted, this, [this] { m_isMovement = true; });
    if (gallery->context())
        follow();
    else
        connect(gallery, &GalleryView::contextChanged, this, follow);
    emit galleryChanged();
}

void GalleryGrid::setWidth(double width)
{
    if (change(*this, m_width, width, &GalleryGrid::viewChanged))
        rebuild();
}

void GalleryGrid::setViewTop(double top)
{
    if (change(*this, m_viewTop, top, &GalleryGrid::viewChanged))
        showCells(Making::some);
}

void GalleryGrid::setViewHeight(double height)
{
    if (change(*this, m_viewHeight, height, &GalleryGrid::viewChanged))
        showCells(Making::all);
}

Slideshow *GalleryGrid::current() const
{
    const int index = m_layout.indexOf(m_current);
    return index < 0 ? nullptr : m_layout.cards()[place(index)].slideshow.data();
}

void GalleryGrid::setCurrent(Slideshow *slideshow)
{
    const QUuid id = slideshow ? slideshow->id() : QUuid();
    if (m_current == id)
        return;
    m_current = id;
    emit currentChanged();
}

int GalleryGrid::currentIndex()
{
    if (m_isOutdated)
        rebuild();
    return m_layout.indexOf(m_current);
}

void GalleryGrid::moveBy(int by)
{
    if (const int index = currentIndex(); index >= 0)
        moveTo(std::clamp(index + by, 0, static_cast<int>(m_layout.cards().size()) - 1));
}

void GalleryGrid::moveByRows(int by)
{
    if (const int index = currentIndex(); index >= 0)
        moveTo(m_layout.cardInRow(index, by));
}

void GalleryGrid::moveByPages(int by)
{
    const int from = currentIndex();
    if (from < 0)
        return;
    const int step = by < 0 ? -1 : 1;
    const double wanted = m_layout.cards()[place(from)].rect.top() + by * m_viewHeight;
    int to = m_layout.cardInRow(from, step);
    for (int next = m_layout.cardInRow(to, step);
         next != to && (wanted - m_layout.cards()[place(next)].rect.top()) * step >= 0;
         next = m_layout.cardInRow(to, step))
        to = next;
    moveTo(to);
}

void GalleryGrid::moveToEnd(bool isLast)
{
    if (currentIndex() >= 0)
        moveTo(isLast ? static_cast<int>(m_layout.cards().size()) - 1 : 0);
}

bool GalleryGrid::showCurrent()
{
    const int index = currentIndex();
    if (index < 0)
        return false;
    const QRectF card = m_layout.cards()[place(index)].rect;
    const bool wasInView = card.top() < m_viewTop + m_viewHeight && card.bottom() > m_viewTop;
    moveTo(index);
    return wasInView;
}

void GalleryGrid::moveTo(int card)
{
    setCurrent(m_layout.cards()[place(card)].slideshow);
    const double margin = GalleryMetrics().padding;
    const QRectF shown = m_layout.surroundings(card).adjusted(0, -margin, 0, margin);
    const double top = std::min(std::max(m_viewTop, shown.bottom() - m_viewHeight), shown.top());
    if (top != m_viewTop)
        emit scrollRequested(top);
    showCells(Making::all);
}

void GalleryGrid::rebuildLater()
{
    if (std::exchange(m_isOutdated, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_isOutdated)
                rebuild();
        },
        Qt::QueuedConnection);
}

void GalleryGrid::rebuild()
{
    m_isOutdated = false;
    if (!m_gallery)
        return;
    GalleryLayout next(m_gallery->groupedSlideshows(), m_width);
    const double top = std::clamp(anchoredTop(next), 0.0, std::max(0.0, next.height() - m_viewHeight));
    keepCurrent(next);
    m_layout = std::move(next);
    if (std::exchange(m_isMovement, false) && top == m_viewTop)
        emit cellsMove();
    emit contentHeightChanged();
    emit currentChanged();
    if (top != m_viewTop)
        emit scrollRequested(top);
    showCells(Making::all);
}

double GalleryGrid::anchoredTop(const GalleryLayout &next) const
{
    // At the very top, what is new is to be seen.
    if (m_viewTop <= 0)
        return m_viewTop;
    const auto &cards = m_layout.cards();
    const auto below = std::ranges::find_if(
        cards, [this](const GalleryLayout::Card &card) { return card.rect.bottom() > m_viewTop; });
    auto anchor = std::find_if(below, cards.end(), stays);
    if (anchor == cards.end()) {
        const auto above = std::find_if(std::reverse_iterator(below), cards.rend(), stays);
        if (above == cards.rend())
            return m_viewTop;
        anchor = std::prev(above.base());
    }
    return m_viewTop + next.cards()[place(next.indexOf(anchor->id))].rect.top() - anchor->rect.top();
}

void GalleryGrid::keepCurrent(const GalleryLayout &next)
{
    if (next.indexOf(m_current) >= 0)
        return;
    // The card that takes the place of the one that went.
    const auto &cards = m_layout.cards();
    const auto gone = std::ranges::find(cards, m_current, &GalleryLayout::Card::id);
    if (const auto later = std::find_if(gone, cards.end(), stays); later != cards.end())
        m_current = later->id;
    else if (const auto sooner = std::find_if(std::reverse_iterator(gone), cards.rend(), stays);
             sooner != cards.rend())
        m_current = sooner->id;
    else
        m_current = next.cards().empty() ? QUuid() : next.cards().front().id;
}

void GalleryGrid::showCells(Making making)
{
    const bool isSeen = m_viewHeight > 0 && m_width > 0;
    const double top = isSeen ? m_viewTop - reserve : 0;
    const double bottom = isSeen ? m_viewTop + m_viewHeight + reserve : 0;
    const int most = making == Making::all ? std::numeric_limits<int>::max() : newCardsInFrame;
    m_headers.show(m_layout.headersBetween(top, bottom), std::numeric_limits<int>::max());
    if (!m_cards.show(m_layout.cardsBetween(top, bottom), most))
        m_nextFrame.start();
}

} // namespace mosslantern
