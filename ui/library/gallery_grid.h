#pragma once

#include "ui/library/gallery_cells.h"
#include "ui/library/gallery_view.h"

#include <QtCore/QTimer>

namespace mosslantern {

/// Lays the gallery out for what scrolls over it: the cells in view, how high everything is, and which card
/// the keyboard is on. What is in view stays where it is when slideshows come and go above it.
class GalleryGrid : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::GalleryView *gallery READ gallery WRITE setGallery NOTIFY galleryChanged REQUIRED)
    /// The part of the whole that is seen, in points.
    Q_PROPERTY(double width MEMBER m_width WRITE setWidth NOTIFY viewChanged)
    Q_PROPERTY(double viewTop MEMBER m_viewTop WRITE setViewTop NOTIFY viewChanged)
    Q_PROPERTY(double viewHeight MEMBER m_viewHeight WRITE setViewHeight NOTIFY viewChanged)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY contentHeightChanged)
    Q_PROPERTY(double barHeight READ barHeight CONSTANT)
    Q_PROPERTY(QAbstractItemModel *headers READ headers CONSTANT)
    Q_PROPERTY(QAbstractItemModel *cards READ cards CONSTANT)
    /// The card that the keyboard is on; null when there are none.
    Q_PROPERTY(mosslantern::Slideshow *current READ current NOTIFY currentChanged)

public:
    explicit GalleryGrid(QObject *parent = nullptr);

    GalleryView *gallery() const { return m_gallery; }
    /// Once.
    void setGallery(GalleryView *gallery);

    void setWidth(double width);
    void setViewTop(double top);
    void setViewHeight(double height);

    double contentHeight() const { return m_layout.height(); }
    double barHeight() const { return GalleryMetrics().barHeight; }
    QAbstractItemModel *headers() { return &m_headers; }
    QAbstractItemModel *cards() { return &m_cards; }

    Slideshow *current() const;
    Q_INVOKABLE void setCurrent(mosslantern::Slideshow *slideshow);
    /// To the card that comes `by` later in reading order, or as many rows further down, or about as many
    /// heights of the view; and shows it.
    Q_INVOKABLE void moveBy(int by);
    Q_INVOKABLE void moveByRows(int by);
    Q_INVOKABLE void moveByPages(int by);
    Q_INVOKABLE void moveToEnd(bool isLast);
    /// Shows the current card; whether it was in view before.
    Q_INVOKABLE bool showCurrent();

signals:
    void galleryChanged();
    void viewChanged();
    void contentHeightChanged();
    void currentChanged();
    /// `viewTop` should become this.
    void scrollRequested(double top);
    /// The cells in view have new places and are to be seen moving there.
    void cellsMove();

private:
    int currentIndex();
    void moveTo(int card);
    void rebuildLater();
    void rebuild();
    double anchoredTop(const GalleryLayout &next) const;
    void keepCurrent(const GalleryLayout &next);
    /// All of them, or those for which there is time in this frame; then the others follow.
    enum class Making { all, some };
    void showCells(Making making);

    GalleryView *m_gallery = nullptr;
    double m_width = 0;
    double m_viewTop = 0;
    double m_viewHeight = 0;
    GalleryLayout m_layout;
    GalleryCells m_headers;
    GalleryCells m_cards;
    QUuid m_current;
    QTimer m_nextFrame;
    bool m_isOutdated = false;
    bool m_isMovement = false;
};

} // namespace mosslantern
