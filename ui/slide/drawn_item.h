#pragma once

#include <QtGui/QImage>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// An image that fills a rectangle, in the points of the item that shows it.
struct PlacedImage
{
    QImage image;
    QRectF rect;
};

/// An item that shows images which it makes itself, right before a frame: anew when it is told to, and when
/// its size, its window or the pixels of that change. They are shown on whole pixels of the window.
class DrawnItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit DrawnItem(QQuickItem *parent = nullptr);

protected:
    /// Makes the images anew before the next frame.
    void redraw();

    /// The images, from the lowest to the highest, for a window with `pixelRatio` pixels to a point.
    virtual std::vector<PlacedImage> draw(double pixelRatio) = 0;

    /// How far from their places the images are shown, in points; asked for with each update().
    virtual QPointF shift() const { return {}; }

    /// `image` as large as its pixels, with its top left at `at`, which is in pixels.
    [[nodiscard]] static PlacedImage place(const QImage &image, QPointF at, double pixelRatio);

    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    std::vector<PlacedImage> m_images;
    bool m_imagesAreNew = false;
};

} // namespace mosslantern
