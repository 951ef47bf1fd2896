#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// What surrounds the editor's canvas, which the item fills: rounded corners cut out of the backdrop, and the
/// shadow on it. Lies above the canvas.
class CanvasFrame : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Around the canvas.
    Q_PROPERTY(QColor backdrop READ backdrop WRITE setBackdrop NOTIFY backdropChanged REQUIRED)
    /// Opacity of the shadow.
    Q_PROPERTY(double shadowStrength READ shadowStrength WRITE setShadowStrength NOTIFY shadowStrengthChanged)

public:
    explicit CanvasFrame(QQuickItem *parent = nullptr);

    QColor backdrop() const { return m_backdrop; }
    void setBackdrop(const QColor &color);

    double shadowStrength() const { return m_shadowStrength; }
    void setShadowStrength(double strength);

signals:
    void backdropChanged();
    void shadowStrengthChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QColor m_backdrop;
    double m_shadowStrength = 0.3;
    QImage m_image;
    int m_margin = 0;
    double m_pixelRatio = 1;
    bool m_imageIsNew = false;
};

} // namespace mosslantern
