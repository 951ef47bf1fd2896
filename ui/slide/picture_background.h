#pragma once

#include "model/rgba_color.h"
#include "ui/slide/canvas_picture.h"
#include "ui/slide/drawn_item.h"

namespace mosslantern {

/// What stands behind the texts of a canvas, filling the item: a picture, or the colour in its place.
class PictureBackground : public mosslantern::DrawnItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// Of the canvas, in points.
    Q_PROPERTY(QSizeF canvasSize READ canvasSize WRITE setCanvasSize NOTIFY canvasSizeChanged REQUIRED)
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY isLoadedChanged)

public:
    explicit PictureBackground(QQuickItem *parent = nullptr);

    QSizeF canvasSize() const { return m_canvasSize; }
    void setCanvasSize(QSizeF size);

    bool isLoaded() const { return m_picture.isLoaded(); }

signals:
    void canvasSizeChanged();
    void isLoadedChanged();

protected:
    /// The picture's file; empty when there is none.
    virtual QString picturePath() const = 0;
    /// What stands there then.
    virtual RgbaColor noPicture() const = 0;

    std::vector<PlacedImage> draw(double pixelRatio) override;

private:
    QSizeF m_canvasSize;
    CanvasPicture m_picture;
};

} // namespace mosslantern
