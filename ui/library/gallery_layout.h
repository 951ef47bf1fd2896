#pragma once

#include "model/batch_groups.h"

#include <QtCore/QPointer>
#include <QtCore/QRectF>
#include <QtCore/QUuid>

#include <span>
#include <vector>

namespace mosslantern {

/// The measures of the gallery, in points.
struct GalleryMetrics
{
    double padding = 24;        // around everything
    double sectionSpacing = 32; // between two batches
    double headerHeight = 28;
    double headerPadding = 8; // below a header
    double minimumColumnWidth = 200;
    double maximumColumnWidth = 300;
    double gridSpacing = 24; // between columns and between rows
    double barHeight = 55;   // of a card's information bar
};

/// Where the header and the cards of every batch lie in a gallery of a given width, in points from the top
/// left of what is scrolled. Cards of different heights stand in the middle of their row.
class GalleryLayout
{
public:
    struct Header
    {
        QString name;
        int count = 0; // of slideshows
        QRectF rect;
    };
    struct Card
    {
        QPointer<Slideshow> slideshow; // null once it is gone
        QUuid id;                      // of the slideshow
        QRectF rect;
        int row = 0; // counted through all batches
    };

    GalleryLayout() = default;
    GalleryLayout(const QList<BatchGroup> &groups, double width, const GalleryMetrics &metrics = {});

    double height() const { return m_height; }
    const std::vector<Card> &cards() const { return m_cards; }

    /// What lies, at least in part, between two heights.
    std::span<const Header> headersBetween(double top, double bottom) const;
    std::span<const Card> cardsBetween(double top, double bottom) const;

    /// Place of a slideshow's card, -1 when there is none.
    int indexOf(const QUuid &id) const;

    /// The card `by` rows below a card (above it when negative), in the same column as far as there is one,
    /// and no further than the first and last row.
    int cardInRow(int card, int by) const;

    /// What is to be seen together with a card: its row, and the header that stands directly above it.
    QRectF surroundings(int card) const;

private:
    struct Row
    {
        double top = 0;
        double bottom = 0;
        int firstCard = 0;
        int count = 0;
        double shownFrom = 0; // the top of the header, for the first row of a batch
    };

    struct Columns
    {
        double width = 0; // of a card, whole points
        double step = 0;  // from one column to the next
        double left = 0;
    };

    void addRow(const QList<Slideshow *> &slideshows, Row row, const Columns &columns,
                const GalleryMetrics &metrics);

    double m_height = 0;
    std::vector<Header> m_headers;
    std::vector<Card> m_cards;
    std::vector<Row> m_rows;
};

} // namespace mosslantern
