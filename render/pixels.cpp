#include "render/pixels.h"

#include "render/vectorized.h"

#include <cmath>
#include <cstring>

namespace mosslantern {

namespace {

MOSSLANTERN_VECTORIZED
void copyAlpha(const uint32_t *__restrict pixels, uint8_t *__restrict out, int count)
{
    for (int i = 0; i < count; ++i)
        out[i] = static_cast<uint8_t>(pixels[i] >> 24);
}

MOSSLANTERN_VECTORIZED
void swapRow(uint32_t *pixels, int count)
{
    for (int i = 0; i < count; ++i) {
        const uint32_t pixel = pixels[i];
        pixels[i] = (pixel & 0xFF00FF00) | ((pixel >> 16) & 0xFF) | ((pixel & 0xFF) << 16);
    }
}

} // namespace

QColor toColor(const RgbaColor &color)
{
    const Pixel pixel = toPixel(color);
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

Pixel toPixel(const RgbaColor &color)
{
    const auto byte = [](double fraction) {
        return static_cast<uint8_t>(std::isnan(fraction) ? 0
                                                         : std::lround(std::clamp(fraction, 0.0, 1.0) * 255));
    };
    return {byte(color.red), byte(color.green), byte(color.blue), byte(color.opacity)};
}

Pixel premultiplied(const Pixel &pixel)
{
    const auto faded = [&](size_t channel) { return multiplied(pixel[channel], pixel[3]); };
    return {faded(0), faded(1), faded(2), pixel[3]};
}

AlphaPlane alphaPlane(const QImage &image)
{
    AlphaPlane plane(image.size());
    const int width = image.width();
    for (int y = 0; y < plane.height(); ++y) {
        uint8_t *out = plane.row(y);
        if (image.format() == QImage::Format_Alpha8)
            std::memcpy(out, image.constScanLine(y), static_cast<size_t>(width));
        else
            copyAlpha(reinterpret_cast<const uint32_t *>(image.constScanLine(y)), out, width);
    }
    return plane;
}

void multiplyBy(QImage &image, const AlphaPlane &plane)
{
    for (int y = 0; y < plane.height(); ++y) {
        uint8_t *pixel = image.scanLine(y);
        const uint8_t *alpha = plane.row(y);
        for (int x = 0; x < plane.width(); ++x, pixel += 4) {
            if (alpha[x] == 255) // nearly everywhere
                continue;
            for (int channel = 0; channel < 4; ++channel)
                pixel[channel] = multiplied(pixel[channel], alpha[x]);
        }
    }
}

MOSSLANTERN_VECTORIZED
void blendOver(uint8_t *__restrict under, const uint8_t *__restrict over, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto rest = static_cast<uint8_t>(255 - over[4 * i + 3]);
        for (int channel = 4 * i; channel < 4 * i + 4; ++channel)
            under[channel] = static_cast<uint8_t>(over[channel] + multiplied(under[channel], rest));
    }
}

void fillUp(uint8_t *pixels, const uint8_t *alpha, int count, const Pixel &color)
{
    const Pixel solid{color[0], color[1], color[2], 255};
    for (int i = 0; i < count; ++i) {
        uint8_t *pixel = pixels + static_cast<ptrdiff_t>(4) * i;
        if (alpha[i] <= pixel[3])
            continue;
        const auto missing = static_cast<uint8_t>(alpha[i] - pixel[3]);
        for (size_t channel = 0; channel < 4; ++channel)
            pixel[channel] = static_cast<uint8_t>(pixel[channel] + multiplied(solid[channel], missing));
    }
}

void swapRedAndBlue(QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        swapRow(reinterpret_cast<uint32_t *>(image.scanLine(y)), image.width());
}

void unpremultiply(uint8_t *pixels, int count)
{
    for (int i = 0; i < 4 * count; i += 4) {
        const uint32_t alpha = pixels[i + 3];
        if (alpha == 255 || alpha == 0)
            continue;
        for (int channel = i; channel < i + 3; ++channel)
            pixels[channel] =
                static_cast<uint8_t>(std::min(255U, (pixels[channel] * 255U + alpha / 2) / alpha));
    }
}

} // namespace mosslantern
