#pragma once

#include "model/aspect_ratio.h"
#include "render/slide_values.h"
#include "ui/slide/canvas_picture.h"
#include "ui/slide/drawn_item.h"

namespace mosslantern {

/// A slide drawn by the exporter's painter: the largest canvas of its shape that fits into the item, in its
/// centre. As wide as the canvas of its height, in whole pixels, unless it is given a width.
class StaticSlide : public mosslantern::DrawnItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// Whether the picture is shown, of those slides that have one.
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY isLoadedChanged)
    /// Cuts the upper corners off as those of what the slide lies on, in points; 0 does not.
    Q_PROPERTY(double topRadius MEMBER m_topRadius WRITE setTopRadius NOTIFY topRadiusChanged)

public:
    explicit StaticSlide(QQuickItem *parent = nullptr);

    bool isLoaded() const { return m_picture.isLoaded(); }

    /// Where the canvas lies in the item, in points.
    QRectF canvasRect() const;

    void setTopRadius(double radius);

signals:
    void isLoadedChanged();
    void canvasShapeChanged();
    void topRadiusChanged();

protected:
    /// What the slide shows at the moment.
    struct Content
    {
        SlideValues values;
        QString picturePath;     // empty: there is none
        RgbaColor noPicture;     // stands where there is none
        QImage preloadedPicture; // instead of the file, unless null
    };

    virtual Content content() const = 0;
    virtual AspectRatio shape() const = 0;

    std::vector<PlacedImage> draw(double pixelRatio) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    double pixelRatio() const;
    void fitWidth();
    Background background(const Content &content, const Canvas &canvas);

    CanvasPicture m_picture;
    double m_topRadius = 0;
    SlideValues m_drawnValues;
    Canvas m_drawnCanvas;
    std::vector<Layer> m_texts; // of these values on that canvas
};

/// The shape that a screen hands over: an AspectRatio as a number, or nothing for `tiktok`.
[[nodiscard]] AspectRatio aspectRatioFromVariant(const QVariant &value);

} // namespace mosslantern
