#pragma once

#include "model/rgba_color.h"
#include "render/pixels/alpha_plane.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <array>

namespace mosslantern {

/// Red, green, blue and opacity of one pixel, each 0 to 255.
using Pixel = std::array<uint8_t, 4>;

[[nodiscard]] QColor toColor(const RgbaColor &color);

/// Not premultiplied.
[[nodiscard]] Pixel toPixel(const RgbaColor &color);

[[nodiscard]] Pixel premultiplied(const Pixel &pixel);

/// The opacity of an image of four bytes a pixel, alpha last in memory (little-endian), or of an Alpha8
/// image.
[[nodiscard]] AlphaPlane alphaPlane(const QImage &image);

/// Fades every pixel of a premultiplied image of four bytes a pixel by the plane of the same size.
void multiplyBy(QImage &image, const AlphaPlane &plane);

/// Puts `over` on `under`, both `count` pixels of premultiplied RGBA.
void blendOver(uint8_t *under, const uint8_t *over, int count);

/// Raises the opacity of `count` premultiplied RGBA pixels to `alpha` where it is lower, as if `color` (its
/// opacity does not count) lay behind them.
void fillUp(uint32_t *pixels, const uint8_t *alpha, int count, const Pixel &color);

/// Turns ARGB32 pixels into RGBA8888 ones, or back, where they are; the image keeps its format.
void swapRedAndBlue(QImage &image);

/// Puts `count` premultiplied RGBA pixels on white; all are opaque afterwards.
void putOnWhite(uint8_t *pixels, int count);

/// From premultiplied to plain RGBA, as files hold it.
void unpremultiply(uint8_t *pixels, int count);

} // namespace mosslantern
