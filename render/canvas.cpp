#include "render/canvas.h"

#include <algorithm>
#include <cmath>

namespace mosslantern {

QSize Canvas::pixelSize() const
{
    const auto pixels = [this](double points) {
        return std::max(1, static_cast<int>(std::lround(points * pixelRatio)));
    };
    return {pixels(size.width()), pixels(size.height())};
}

Canvas exportCanvas(AspectRatio aspectRatio)
{
    constexpr double exportPixelRatio = 2;
    switch (aspectRatio) {
    case AspectRatio::tiktok:
        return {{1080, 1920}, exportPixelRatio};
    case AspectRatio::instagram:
        return {{480, 600}, exportPixelRatio};
    case AspectRatio::square:
        return {{120, 120}, exportPixelRatio};
    }
    Q_UNREACHABLE();
}

QRectF fittedCanvas(AspectRatio aspectRatio, const QRectF &area)
{
    const double shape = widthToHeight(aspectRatio);
    const double width = std::min(area.width(), area.height() * shape);
    QRectF canvas(0, 0, width, width / shape);
    canvas.moveCenter(area.center());
    return canvas;
}

} // namespace mosslantern
