#pragma once

#include "ui/slide/drawn_item.h"

#include <QtGui/QColor>

namespace mosslantern {

/// What surrounds the editor's canvas, which the item fills: rounded corners cut out of the backdrop, and the
/// shadow on it. Lies above the canvas.
class CanvasFrame : public mosslantern::DrawnItem
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
    std::vector<PlacedImage> draw(double pixelRatio) override;

private:
    QColor m_backdrop;
    double m_shadowStrength = 0.3;
};

} // namespace mosslantern
