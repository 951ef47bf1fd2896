#include "render/pixels/alpha_plane.h"

#include "render/pixels/vectorized.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace mosslantern {

namespace {

// From here on a blur is computed on a plane of half the size: the difference stays below two levels of 255.
constexpr double halvingSigma = 4;

/// The blur that is left to do on the half plane: making it and interpolating between its values blur a
/// little by themselves, each by a variance of 3/4 pixels².
double halvedSigma(double sigma)
{
    return std::sqrt(sigma * sigma - 1.5) / 2;
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

MOSSLANTERN_VECTORIZED
void addPair(uint32_t *__restrict sums, const uint8_t *__restrict one, const uint8_t *__restrict other,
             uint32_t weight, int count)
{
    for (int x = 0; x < count; ++x)
        sums[x] += weight * (uint32_t(one[x]) + other[x]);
}

/// `row` gives the row at a distance of −radius to radius from the one to be computed.
template <typename Row>
void weighRows(const std::vector<uint32_t> &weights, std::vector<uint32_t> &sums, uint8_t *out, int width,
               Row row)
{
    const uint8_t *centre = row(0);
    for (int x = 0; x < width; ++x)
        sums[static_cast<size_t>(x)] = 32768 + weights[0] * centre[x];
    for (int i = 1; i < static_cast<int>(weights.size()); ++i)
        addPair(sums.data(), row(-i), row(i), weights[static_cast<size_t>(i)], width);
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
        weighRows(weights, sums, across.row(y), width, [&](int i) { return padded.data() + radius + i; });
    }

    AlphaPlane result(plane.size());
    const std::vector<uint8_t> zeros(static_cast<size_t>(width));
    for (int y = 0; y < height; ++y) {
        weighRows(weights, sums, result.row(y), width,
                  [&](int i) { return y + i < 0 || y + i >= height ? zeros.data() : across.row(y + i); });
    }
    return result;
}

/// Weights 1, 3, 3, 1 of the rows and columns around the middle of each two by two pixels: unlike their plain
/// average they keep a fine line where it is. `columns` starts one column before the plane.
MOSSLANTERN_VECTORIZED
void halveRow(const uint16_t *__restrict columns, uint8_t *__restrict out, int count)
{
    for (int x = 0; x < count; ++x) {
        const int inner = columns[2 * x + 1] + columns[2 * x + 2];
        const int outer = columns[2 * x] + columns[2 * x + 3];
        out[x] = static_cast<uint8_t>((3 * inner + outer + 32) >> 6);
    }
}

AlphaPlane halved(const AlphaPlane &plane)
{
    AlphaPlane half(QSize((plane.width() + 1) / 2, (plane.height() + 1) / 2));
    const std::vector<uint8_t> zeros(static_cast<size_t>(plane.width()));
    std::vector<uint16_t> columns(static_cast<size_t>(2 * half.width() + 2));
    const auto row = [&](int y) { return y < 0 || y >= plane.height() ? zeros.data() : plane.row(y); };
    for (int y = 0; y < half.height(); ++y) {
        const uint8_t *above = row(2 * y - 1);
        const uint8_t *upper = row(2 * y);
        const uint8_t *lower = row(2 * y + 1);
        const uint8_t *below = row(2 * y + 2);
        for (int x = 0; x < plane.width(); ++x) {
            columns[static_cast<size_t>(x) + 1] =
                static_cast<uint16_t>(above[x] + 3 * upper[x] + 3 * lower[x] + below[x]);
        }
        halveRow(columns.data(), half.row(y), half.width());
    }
    return half;
}

/// Between each value and its neighbours on both sides, a quarter of the way; `mixed` has one more on each
/// side.
MOSSLANTERN_VECTORIZED
void doubleRow(const uint16_t *__restrict mixed, uint8_t *__restrict out, int count)
{
    for (int x = 0; x < count; ++x) {
        out[2 * x] = static_cast<uint8_t>((3 * mixed[x + 1] + mixed[x] + 8) >> 4);
        out[2 * x + 1] = static_cast<uint8_t>((3 * mixed[x + 1] + mixed[x + 2] + 8) >> 4);
    }
}

AlphaPlane doubled(const AlphaPlane &half, QSize size)
{
    AlphaPlane plane(size);
    std::vector<uint16_t> mixed(static_cast<size_t>(half.width()) + 2);
    std::vector<uint8_t> wide(static_cast<size_t>(2 * half.width()));
    for (int y = 0; y < size.height(); ++y) {
        const int neighbour = std::clamp(y % 2 == 0 ? y / 2 - 1 : y / 2 + 1, 0, half.height() - 1);
        const uint8_t *near = half.row(y / 2);
        const uint8_t *far = half.row(neighbour);
        for (int x = 0; x < half.width(); ++x)
            mixed[static_cast<size_t>(x) + 1] = static_cast<uint16_t>(3 * near[x] + far[x]);
        mixed.front() = mixed[1];
        mixed.back() = mixed[mixed.size() - 2];
        doubleRow(mixed.data(), wide.data(), half.width());
        std::memcpy(plane.row(y), wide.data(), static_cast<size_t>(size.width()));
    }
    return plane;
}

} // namespace

int blurReach(double sigma)
{
    if (sigma <= 0)
        return 0;
    return sigma < halvingSigma ? kernelRadius(sigma) : 2 * blurReach(halvedSigma(sigma)) + 4;
}

AlphaPlane blurred(const AlphaPlane &plane, double sigma)
{
    if (sigma <= 0)
        return plane;
    if (sigma < halvingSigma)
        return convolved(plane, sigma);
    return doubled(blurred(halved(plane), halvedSigma(sigma)), plane.size());
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
