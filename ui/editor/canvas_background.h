#pragma once

#include "model/slide.h"
#include "ui/editor/canvas_picture.h"

namespace mosslantern {

/// What stands behind the texts of a slide, filling the item: the picture, or the gray in its place.
class CanvasBackground : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::Slide *slide READ slide WRITE setSlide NOTIFY slideChanged REQUIRED)
    /// Of the canvas, in points.
    Q_PROPERTY(QSizeF canvasSize READ canvasSize WRITE setCanvasSize NOTIFY canvasSizeChanged REQUIRED)
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY isLoadedChanged)

public:
    explicit CanvasBackground(QQuickItem *parent = nullptr);

    Slide *slide() const { return m_slide; }
    void setSlide(Slide *slide);

    QSizeF canvasSize() const { return m_canvasSize; }
    void setCanvasSize(QSizeF size);

    bool isLoaded() const { return m_picture.isLoaded(); }

signals:
    void slideChanged();
    void canvasSizeChanged();
    void isLoadedChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    void reload();

    QPointer<Slide> m_slide;
    QSizeF m_canvasSize;
    CanvasPicture m_picture;
    QImage m_image;
    bool m_imageIsNew = false;
};

} // namespace mosslantern
