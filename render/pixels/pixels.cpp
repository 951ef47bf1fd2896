#include "render/pixels/pixels.h"

#include "render/pixels/vectorized.h"

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

void multiplyPixels(uint8_t *pixels, const uint8_t *alpha, int count)
{
    for (int i = 0; i < count; ++i) {
        for (int channel = 4 * i; channel < 4 * i + 4; ++channel)
            pixels[channel] = multiplied(pixels[channel], alpha[i]);
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
    constexpr int step = 8;
    const int width = plane.width();
    for (int y = 0; y < plane.height(); ++y) {
        uint8_t *pixels = image.scanLine(y);
        const uint8_t *alpha = plane.row(y);
        int x = 0;
        // Nearly everything is kept or dropped whole.
        for (; x + step <= width; x += step) {
            uint64_t eight;
            std::memcpy(&eight, alpha + x, sizeof eight);
            if (eight == 0)
                std::memset(pixels + 4 * x, 0, 4 * step);
            else if (eight != ~uint64_t(0))
                multiplyPixels(pixels + 4 * x, alpha + x, step);
        }
        multiplyPixels(pixels + 4 * x, alpha + x, width - x);
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

MOSSLANTERN_VECTORIZED
void fillUp(uint32_t *__restrict pixels, const uint8_t *__restrict alpha, int count, const Pixel &color)
{
    // Two channels at a time, each in 16 bits, rounded as multiplied() does.
    const uint32_t redBlue = color[0] | static_cast<uint32_t>(color[2]) << 16;
    const uint32_t greenAlpha = color[1] | 255U << 16;
    const auto faded = [](uint32_t channels, uint32_t by) {
        const uint32_t product = channels * by + 0x00800080;
        return ((product + ((product >> 8) & 0x00FF00FF)) >> 8) & 0x00FF00FF;
    };
    for (int i = 0; i < count; ++i) {
        const uint32_t held = pixels[i] >> 24;
        const uint32_t missing = alpha[i] > held ? alpha[i] - held : 0;
        pixels[i] += faded(redBlue, missing) + (faded(greenAlpha, missing) << 8);
    }
}

void swapRedAndBlue(QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        swapRow(reinterpret_cast<uint32_t *>(image.scanLine(y)), image.width());
}

void putOnWhite(uint8_t *pixels, int count)
{
    for (int i = 0; i < 4 * count; i += 4) {
        const int missing = 255 - pixels[i + 3];
        for (int channel = i; channel < i + 4; ++channel)
            pixels[channel] = static_cast<uint8_t>(pixels[channel] + missing);
    }
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
