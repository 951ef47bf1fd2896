#include "render/pixels/continuous_corners.h"

#include <array>

namespace mosslantern {

namespace {

/// Control points of one corner, in radii from it: x along the edge that the corner is entered on.
constexpr std::array<std::array<double, 2>, 10> cornerPoints{{{1.528665, 0},
                                                              {1.08849, 0},
                                                              {0.86841, 0},
                                                              {0.63149, 0.07491},
                                                              {0.37282, 0.16906},
                                                              {0.16906, 0.37282},
                                                              {0.07491, 0.63149},
                                                              {0, 0.86841},
                                                              {0, 1.08849},
                                                              {0, 1.528665}}};

} // namespace

QPainterPath continuousRoundedRect(const QRectF &rect, double radius)
{
    QPainterPath path;
    const double r = std::min(radius, std::min(rect.width(), rect.height()) / 2 / continuousCornerExtent);
    if (r <= 0) {
        path.addRect(rect);
        return path;
    }
    // Clockwise from the top left; each corner is entered along one edge and left along the next.
    struct Corner
    {
        QPointF at;
        QPointF back; // towards where the path comes from
        QPointF on;   // towards where it goes
    };
    const std::array<Corner, 4> corners{{{rect.topRight(), {-1, 0}, {0, 1}},
                                         {rect.bottomRight(), {0, -1}, {-1, 0}},
                                         {rect.bottomLeft(), {1, 0}, {0, -1}},
                                         {rect.topLeft(), {0, 1}, {1, 0}}}};
    path.moveTo(rect.left() + continuousCornerExtent * r, rect.top());
    for (const Corner &corner : corners) {
        const auto point = [&](size_t i) {
            return corner.at + corner.back * (cornerPoints[i][0] * r) + corner.on * (cornerPoints[i][1] * r);
        };
        path.lineTo(point(0));
        for (size_t i = 1; i < cornerPoints.size(); i += 3)
            path.cubicTo(point(i), point(i + 1), point(i + 2));
    }
    path.closeSubpath();
    return path;
}

} // namespace mosslantern
