#include "render/pixels/shadows.h"

#include "render/pixels/pixels.h"
#include "render/pixels/vectorized.h"

#include <cmath>

namespace mosslantern {

namespace {

double blurSigma(const Shadow &shadow, double pixelsPerPoint)
{
    return shadow.radius / 2 * std::abs(pixelsPerPoint);
}

MOSSLANTERN_VECTORIZED
void addBehind(uint8_t *__restrict alpha, const uint8_t *__restrict behind, size_t count, uint8_t opacity)
{
    for (size_t i = 0; i < count; ++i) {
        const auto free = static_cast<uint8_t>(255 - alpha[i]);
        alpha[i] = static_cast<uint8_t>(alpha[i] + multiplied(free, multiplied(behind[i], opacity)));
    }
}

/// Draws one shadow of `plane` behind it.
void cast(AlphaPlane &plane, const Shadow &shadow, double pixelsPerPoint)
{
    const double sigma = blurSigma(shadow, pixelsPerPoint);
    const QPointF offset = shadow.offset * pixelsPerPoint;
    AlphaPlane silhouette = sigma > 0 ? blurred(plane, sigma) : plane;
    if (!offset.isNull())
        silhouette = shifted(silhouette, offset);
    addBehind(plane.values().data(), silhouette.values().data(), plane.values().size(),
              static_cast<uint8_t>(std::lround(shadow.color.opacity * 255)));
}

bool isSameHue(const RgbaColor &a, const RgbaColor &b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

/// One row of a plane, stretched over the `width` pixels that show the columns `left` to `left + extent`.
void stretchRow(const AlphaPlane &plane, double y, double left, double extent, int width, uint8_t *out)
{
    const auto at = [&](int column, int line) -> double {
        return plane.row(std::clamp(line, 0, plane.height() - 1))[std::clamp(column, 0, plane.width() - 1)];
    };
    const int line = static_cast<int>(std::floor(y - 0.5));
    const double below = y - 0.5 - line;
    for (int i = 0; i < width; ++i) {
        const double x = left + (i + 0.5) * extent / width - 0.5;
        const int column = static_cast<int>(std::floor(x));
        const double right = x - column;
        const double upper = at(column, line) * (1 - right) + at(column + 1, line) * right;
        const double lower = at(column, line + 1) * (1 - right) + at(column + 1, line + 1) * right;
        out[i] = static_cast<uint8_t>(std::lround(upper * (1 - below) + lower * below));
    }
}

void underlay(QImage &image, const AlphaPlane &plane, const QRectF &area, const RgbaColor &color)
{
    const bool same = area.isNull();
    std::vector<uint8_t> stretched(same ? 0 : static_cast<size_t>(image.width()));
    for (int y = 0; y < image.height(); ++y) {
        if (!same) {
            const double line = area.top() + (y + 0.5) * area.height() / image.height();
            stretchRow(plane, line, area.left(), area.width(), image.width(), stretched.data());
        }
        fillUp(reinterpret_cast<uint32_t *>(image.scanLine(y)), same ? plane.row(y) : stretched.data(),
               image.width(), toPixel(color));
    }
}

} // namespace

double shadowReach(const std::vector<Shadow> &shadows, double pixelsPerPoint)
{
    double reach = 0;
    for (const Shadow &shadow : shadows) {
        reach +=
            std::max(std::abs(shadow.offset.x()), std::abs(shadow.offset.y())) * std::abs(pixelsPerPoint);
        const double sigma = blurSigma(shadow, pixelsPerPoint);
        // Far beyond what is ever blurred at full size, only the order of magnitude matters.
        reach += sigma < 1e6 ? blurReach(sigma) : 3 * sigma;
    }
    return std::ceil(reach);
}

double widestBlur(const std::vector<Shadow> &shadows, double pixelsPerPoint)
{
    double widest = 0;
    for (const Shadow &shadow : shadows)
        widest = std::max(widest, blurSigma(shadow, pixelsPerPoint));
    return widest;
}

void castShadows(QImage &image, AlphaPlane silhouette, const std::vector<Shadow> &shadows,
                 double pixelsPerPoint, const QRectF &area)
{
    for (size_t i = 0; i < shadows.size(); ++i) {
        cast(silhouette, shadows[i], pixelsPerPoint);
        const bool last = i + 1 == shadows.size();
        if (last || !isSameHue(shadows[i].color, shadows[i + 1].color))
            underlay(image, silhouette, area, shadows[i].color);
    }
}

} // namespace mosslantern
