#include "ui/common/pixel_aligned_node.h"

#include <cmath>

namespace mosslantern {

PixelAlignedNode::PixelAlignedNode()
{
    setFlag(UsePreprocess);
}

void PixelAlignedNode::place(double pixelRatio, QPointF offset)
{
    m_pixelRatio = pixelRatio;
    m_offset = offset;
}

void PixelAlignedNode::preprocess()
{
    QMatrix4x4 around;
    for (const QSGNode *node = parent(); node; node = node->parent()) {
        if (node->type() == TransformNodeType)
            around = static_cast<const QSGTransformNode *>(node)->matrix() * around;
    }
    const auto toWholePixels = [this](double points) {
        return std::round(points * m_pixelRatio) / m_pixelRatio;
    };
    const bool isMovedOnly = around(0, 0) == 1 && around(1, 1) == 1 && around(0, 1) == 0 && around(1, 0) == 0;
    const QPointF origin = isMovedOnly ? QPointF(around(0, 3), around(1, 3)) : QPointF();
    QMatrix4x4 moved;
    moved.translate(static_cast<float>(toWholePixels(origin.x()) - origin.x() + toWholePixels(m_offset.x())),
                    static_cast<float>(toWholePixels(origin.y()) - origin.y() + toWholePixels(m_offset.y())));
    if (moved != matrix())
        setMatrix(moved);
}

} // namespace mosslantern
