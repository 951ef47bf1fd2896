#include "render/pixels/resampler.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace mosslantern {

namespace {

constexpr int weightSum = 256;

/// (a · (256 − f) + b · f) / 256 for the four bytes of a pixel at once.
inline uint32_t mixed(uint32_t a, uint32_t b, uint32_t f)
{
    constexpr uint32_t even = 0x00FF00FF;
    const uint32_t low = (a & even) * (256 - f) + (b & even) * f + 0x00800080;
    const uint32_t high = ((a >> 8) & even) * (256 - f) + ((b >> 8) & even) * f + 0x00800080;
    return ((low >> 8) & even) | (high & ~even);
}

uint32_t loadPixel(const uint8_t *bytes)
{
    uint32_t pixel;
    std::memcpy(&pixel, bytes, sizeof pixel);
    return pixel;
}

} // namespace

Resampler::Axis::Axis(double start, double length, int target, int limit)
{
    const double step = length / target;
    const double radius = std::max(1.0, step);
    taps = std::min(limit, static_cast<int>(std::ceil(2 * radius)));
    first.resize(static_cast<size_t>(target));
    weights.resize(static_cast<size_t>(target) * static_cast<size_t>(taps));
    std::vector<double> exact(static_cast<size_t>(taps));
    for (int i = 0; i < target; ++i) {
        const double centre = start + (i + 0.5) * step - 0.5;
        const int from = static_cast<int>(std::floor(centre - radius)) + 1;
        const int inside = std::clamp(from, 0, limit - taps);
        first[static_cast<size_t>(i)] = inside;
        std::fill(exact.begin(), exact.end(), 0.0);
        double sum = 0;
        for (int source = from; source < centre + radius; ++source) {
            const double weight = std::max(0.0, 1 - std::abs(source - centre) / radius);
            exact[static_cast<size_t>(std::clamp(source - inside, 0, taps - 1))] += weight;
            sum += weight;
        }
        // Whole weights that add up exactly: rounding errors are carried on.
        double carried = 0;
        int used = 0;
        for (int tap = 0; tap < taps; ++tap) {
            carried += exact[static_cast<size_t>(tap)] / sum * weightSum;
            const int upTo = static_cast<int>(std::lround(carried));
            weights[static_cast<size_t>(i) * static_cast<size_t>(taps) + static_cast<size_t>(tap)] =
                static_cast<uint16_t>(upTo - used);
            used = upTo;
        }
    }
}

Resampler::Resampler(QImage picture, const QRectF &source, QSize target)
    : m_picture(std::move(picture))
    , m_target(target)
    , m_across(source.x(), source.width(), target.width(), m_picture.width())
    , m_down(source.y(), source.height(), target.height(), m_picture.height())
{}

void Resampler::scaleAcross(int sourceRow, uint8_t *out) const
{
    const uint8_t *row = m_picture.constScanLine(sourceRow);
    const int taps = m_across.taps;
    if (taps == 2) {
        for (int x = 0; x < m_target.width(); ++x) {
            const uint8_t *pixels = row + static_cast<ptrdiff_t>(4) * m_across.first[static_cast<size_t>(x)];
            const uint32_t pixel = mixed(loadPixel(pixels), loadPixel(pixels + 4), m_across.weightsOf(x)[1]);
            std::memcpy(out + static_cast<ptrdiff_t>(4) * x, &pixel, sizeof pixel);
        }
        return;
    }
    for (int x = 0; x < m_target.width(); ++x) {
        const uint8_t *pixels = row + static_cast<ptrdiff_t>(4) * m_across.first[static_cast<size_t>(x)];
        const uint16_t *weights = m_across.weightsOf(x);
        uint32_t sums[4] = {128, 128, 128, 128};
        for (int tap = 0; tap < taps; ++tap) {
            for (int channel = 0; channel < 4; ++channel)
                sums[channel] += uint32_t(weights[tap]) * pixels[4 * tap + channel];
        }
        for (int channel = 0; channel < 4; ++channel)
            out[4 * x + channel] = static_cast<uint8_t>(sums[channel] >> 8);
    }
}

void Resampler::makeRows(int first, int count, uint8_t *out) const
{
    const int taps = m_down.taps;
    const size_t rowBytes = static_cast<size_t>(4) * static_cast<size_t>(m_target.width());
    // The scaled source rows that the current target row needs; row y lies in slot y % taps.
    std::vector<uint8_t> ring(rowBytes * static_cast<size_t>(taps));
    std::vector<int> held(static_cast<size_t>(taps), -1);
    std::vector<uint16_t> sums(taps == 2 ? 0 : rowBytes);
    const auto scaledRow = [&](int sourceRow) -> const uint8_t * {
        const auto slot = static_cast<size_t>(sourceRow % taps);
        uint8_t *pixels = ring.data() + slot * rowBytes;
        if (held[slot] != sourceRow) {
            scaleAcross(sourceRow, pixels);
            held[slot] = sourceRow;
        }
        return pixels;
    };
    for (int y = first; y < first + count; ++y, out += rowBytes) {
        const int top = m_down.first[static_cast<size_t>(y)];
        const uint16_t *weights = m_down.weightsOf(y);
        if (taps == 2) {
            const uint8_t *upper = scaledRow(top);
            const uint8_t *lower = scaledRow(top + 1);
            const uint16_t upperWeight = weights[0];
            const uint16_t lowerWeight = weights[1];
            for (size_t i = 0; i < rowBytes; ++i)
                out[i] = static_cast<uint8_t>(
                    static_cast<uint16_t>(upper[i] * upperWeight + lower[i] * lowerWeight + 128) >> 8);
            continue;
        }
        std::fill(sums.begin(), sums.end(), uint16_t(128));
        for (int tap = 0; tap < taps; ++tap) {
            const uint16_t weight = weights[tap];
            if (weight == 0)
                continue;
            const uint8_t *pixels = scaledRow(top + tap);
            for (size_t i = 0; i < rowBytes; ++i)
                sums[i] = static_cast<uint16_t>(sums[i] + pixels[i] * weight);
        }
        for (size_t i = 0; i < rowBytes; ++i)
            out[i] = static_cast<uint8_t>(sums[i] >> 8);
    }
}

} // namespace mosslantern
