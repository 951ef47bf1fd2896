#include "render/alpha_plane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace mosslantern {

namespace {

// Below this three box blurs are too coarse: their widths are odd whole numbers.
constexpr double smallestBoxSigma = 2.5;

/// Half widths of three box blurs that together have the variance of a Gaussian (sum of (w² − 1) / 12 = σ²).
std::array<int, 3> boxRadii(double sigma)
{
    const double ideal = std::sqrt(12 * sigma * sigma / 3 + 1);
    int lower = static_cast<int>(ideal);
    if (lower % 2 == 0)
        --lower;
    const double narrow = (12 * sigma * sigma - 3.0 * lower * lower - 12.0 * lower - 9) / (-4.0 * lower - 4);
    const int narrowBoxes = static_cast<int>(std::lround(narrow));
    std::array<int, 3> radii{};
    for (int i = 0; i < 3; ++i)
        radii[static_cast<size_t>(i)] = (i < narrowBoxes ? lower : lower + 2) / 2;
    return radii;
}

int kernelRadius(double sigma)
{
    return static_cast<int>(std::ceil(3 * sigma));
}

/// Weights from the centre outwards that add up to 65536 over the whole kernel.
std::vector<uint32_t> halfKernel(double sigma)
{
    const int radius = kernelRadius(sigma);
    std::vector<double> exact(static_cast<size_t>(radius) + 1);
    double sum = 0;
    for (int i = 0; i <= radius; ++i) {
        exact[static_cast<size_t>(i)] = std::exp(-i * i / (2 * sigma * sigma));
        sum += exact[static_cast<size_t>(i)] * (i == 0 ? 1 : 2);
    }
    std::vector<uint32_t> weights(exact.size());
    uint32_t used = 0;
    for (size_t i = 1; i < exact.size(); ++i) {
        weights[i] = static_cast<uint32_t>(std::lround(exact[i] / sum * 65536));
        used += 2 * weights[i];
    }
    weights[0] = 65536 - used;
    return weights;
}

/// out = Σ weight · (row shifted by −i and i), for rows of `width` values with `radius` zeros on each side.
void convolveRow(const uint8_t *padded, uint8_t *out, int width, const std::vector<uint32_t> &weights,
                 std::vector<uint32_t> &sums)
{
    const int radius = static_cast<int>(weights.size()) - 1;
    const uint8_t *centre = padded + radius;
    for (int x = 0; x < width; ++x)
        sums[static_cast<size_t>(x)] = 32768 + weights[0] * centre[x];
    for (int i = 1; i <= radius; ++i) {
        const uint32_t weight = weights[static_cast<size_t>(i)];
        for (int x = 0; x < width; ++x)
            sums[static_cast<size_t>(x)] += weight * (uint32_t(centre[x - i]) + centre[x + i]);
    }
    for (int x = 0; x < width; ++x)
        out[x] = static_cast<uint8_t>(sums[static_cast<size_t>(x)] >> 16);
}

AlphaPlane convolved(const AlphaPlane &plane, double sigma)
{
    const std::vector<uint32_t> weights = halfKernel(sigma);
    const int radius = static_cast<int>(weights.size()) - 1;
    const int width = plane.width();
    const int height = plane.height();
    std::vector<uint32_t> sums(static_cast<size_t>(width));

    AlphaPlane across(plane.size());
    std::vector<uint8_t> padded(static_cast<size_t>(width + 2 * radius));
    for (int y = 0; y < height; ++y) {
        std::memcpy(padded.data() + radius, plane.row(y), static_cast<size_t>(width));
        convolveRow(padded.data(), across.row(y), width, weights, sums);
    }

    AlphaPlane result(plane.size());
    const std::vector<uint8_t> zeros(static_cast<size_t>(width));
    const auto rowOrZeros = [&](int y) { return y < 0 || y >= height ? zeros.data() : across.row(y); };
    for (int y = 0; y < height; ++y) {
        const uint8_t *centre = across.row(y);
        for (int x = 0; x < width; ++x)
            sums[static_cast<size_t>(x)] = 32768 + weights[0] * centre[x];
        for (int i = 1; i <= radius; ++i) {
            const uint32_t weight = weights[static_cast<size_t>(i)];
            const uint8_t *above = rowOrZeros(y - i);
            const uint8_t *below = rowOrZeros(y + i);
            for (int x = 0; x < width; ++x)
                sums[static_cast<size_t>(x)] += weight * (uint32_t(above[x]) + below[x]);
        }
        uint8_t *out = result.row(y);
        for (int x = 0; x < width; ++x)
            out[x] = static_cast<uint8_t>(sums[static_cast<size_t>(x)] >> 16);
    }
    return result;
}

/// sum / width as a multiplication: exact enough for sums up to 255 · width with width below 2^16.
struct BoxDivisor
{
    explicit BoxDivisor(int radius)
        : factor((uint64_t(1) << 32) / static_cast<uint64_t>(2 * radius + 1) + 1)
    {}
    [[nodiscard]] uint8_t operator()(uint32_t sum) const
    {
        return static_cast<uint8_t>((sum * factor) >> 32);
    }
    uint64_t factor;
};

void boxBlurRow(const uint8_t *in, uint8_t *out, int width, int radius)
{
    const BoxDivisor divide(radius);
    const uint32_t half = static_cast<uint32_t>(radius);
    uint32_t sum = half;
    for (int x = 0; x < std::min(radius, width); ++x)
        sum += in[x];
    for (int x = 0; x < width; ++x) {
        if (x + radius < width)
            sum += in[x + radius];
        if (x > radius)
            sum -= in[x - radius - 1];
        out[x] = divide(sum);
    }
}

void boxBlurColumns(const AlphaPlane &in, AlphaPlane &out, int radius)
{
    const int width = in.width();
    const int height = in.height();
    const float scale = 1.0F / static_cast<float>(2 * radius + 1);
    std::vector<int32_t> sums(static_cast<size_t>(width), radius);
    const auto change = [&](int y, int32_t sign) {
        const uint8_t *row = in.row(y);
        for (int x = 0; x < width; ++x)
            sums[static_cast<size_t>(x)] += sign * row[x];
    };
    for (int y = 0; y < std::min(radius, height); ++y)
        change(y, 1);
    for (int y = 0; y < height; ++y) {
        if (y + radius < height)
            change(y + radius, 1);
        if (y > radius)
            change(y - radius - 1, -1);
        uint8_t *row = out.row(y);
        for (int x = 0; x < width; ++x)
            row[x] = static_cast<uint8_t>(
                static_cast<int32_t>(static_cast<float>(sums[static_cast<size_t>(x)]) * scale));
    }
}

AlphaPlane boxBlurred(AlphaPlane plane, double sigma)
{
    AlphaPlane other(plane.size());
    const std::array<int, 3> radii = boxRadii(sigma);
    for (const int radius : radii) {
        for (int y = 0; y < plane.height(); ++y)
            boxBlurRow(plane.row(y), other.row(y), plane.width(), radius);
        std::swap(plane, other);
    }
    for (const int radius : radii) {
        boxBlurColumns(plane, other, radius);
        std::swap(plane, other);
    }
    return plane;
}

} // namespace

int blurReach(double sigma)
{
    if (sigma <= 0)
        return 0;
    if (sigma < smallestBoxSigma)
        return kernelRadius(sigma);
    const std::array<int, 3> radii = boxRadii(sigma);
    return radii[0] + radii[1] + radii[2];
}

AlphaPlane blurred(const AlphaPlane &plane, double sigma)
{
    if (sigma <= 0)
        return plane;
    return sigma < smallestBoxSigma ? convolved(plane, sigma) : boxBlurred(plane, sigma);
}

AlphaPlane shifted(const AlphaPlane &plane, QPointF offset)
{
    const int width = plane.width();
    const int height = plane.height();
    const int wholeX = static_cast<int>(std::floor(std::clamp(offset.x(), -1.0 - width, 1.0 + width)));
    const int wholeY = static_cast<int>(std::floor(std::clamp(offset.y(), -1.0 - height, 1.0 + height)));
    const auto fractionX = static_cast<uint32_t>(std::lround((offset.x() - std::floor(offset.x())) * 256));
    const auto fractionY = static_cast<uint32_t>(std::lround((offset.y() - std::floor(offset.y())) * 256));

    AlphaPlane result(plane.size());
    // Two source rows, moved sideways by whole pixels, with one more value on the left for the interpolation.
    std::vector<uint8_t> upper(static_cast<size_t>(width) + 1);
    std::vector<uint8_t> lower(static_cast<size_t>(width) + 1);
    const auto fetch = [&](int y, std::vector<uint8_t> &into) {
        std::fill(into.begin(), into.end(), uint8_t(0));
        if (y < 0 || y >= height)
            return;
        const int from = std::max(0, -wholeX - 1);
        const int to = std::min(width, width - wholeX);
        if (from < to)
            std::memcpy(into.data() + from + wholeX + 1, plane.row(y) + from, static_cast<size_t>(to - from));
    };
    for (int y = 0; y < height; ++y) {
        fetch(y - wholeY, lower);
        uint8_t *out = result.row(y);
        if (fractionX == 0 && fractionY == 0) {
            std::memcpy(out, lower.data() + 1, static_cast<size_t>(width));
            continue;
        }
        fetch(y - wholeY - 1, upper);
        for (size_t x = 0; x < static_cast<size_t>(width); ++x) {
            const uint32_t low = lower[x + 1] * (256 - fractionX) + lower[x] * fractionX;
            const uint32_t up = upper[x + 1] * (256 - fractionX) + upper[x] * fractionX;
            out[x] = static_cast<uint8_t>((low * (256 - fractionY) + up * fractionY + 32768) >> 16);
        }
    }
    return result;
}

} // namespace mosslantern
