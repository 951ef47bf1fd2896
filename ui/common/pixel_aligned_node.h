#pragma once

#include <QtQuick/QSGTransformNode>

namespace mosslantern {

/// Keeps what is below it on whole pixels of the window, wherever the items around it come to stand. Where
/// they are scaled or turned, it does nothing.
class PixelAlignedNode : public QSGTransformNode
{
public:
    PixelAlignedNode();

    /// How many pixels of the window there are to a point, and how many points further the content is shown.
    void place(double pixelRatio, QPointF offset);

    void preprocess() override;

private:
    double m_pixelRatio = 1;
    QPointF m_offset;
};

} // namespace mosslantern
