#pragma once

#include "ui/library/gallery_layout.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QVariant>

#include <span>
#include <vector>

namespace mosslantern {

/// The headers or the cards of the gallery that are in view, from top to bottom, each with its place. Rows
/// come and go one by one, so that what stays in view is not made anew.
class GalleryCells : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { NameRole = Qt::UserRole, CountRole, SlideshowRole, PlaceRole };

    using QAbstractListModel::QAbstractListModel;

    /// Makes at most `most` new rows; whether that was enough.
    bool show(std::span<const GalleryLayout::Header> headers, int most);
    bool show(std::span<const GalleryLayout::Card> cards, int most);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    struct Cell
    {
        QString name; // of the batch
        int count = 0;
        QUuid id; // of the slideshow
        QPointer<Slideshow> slideshow;
        QRectF place;

        bool isSameAs(const Cell &other) const { return id == other.id && name == other.name; }
        bool operator==(const Cell &) const = default;
    };

    bool show(std::vector<Cell> wanted, int most);

    std::vector<Cell> m_cells;
};

} // namespace mosslantern
