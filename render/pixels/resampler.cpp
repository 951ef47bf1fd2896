#include "render/pixels/resampler.h"

#include "render/pixels/vectorized.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <span>

namespace mosslantern {

namespace {

// Samples are bytes times 2⁷ in a source pixel, times 2⁶ between the directions and times 2⁵ in the end: with
// that, weights of 14 bits and rings of the filter no sum leaves 16 bits.
constexpr int sourceBits = 7;
constexpr int targetBits = 5;
constexpr int weightSum = 1 << 14;

constexpr int channels = 4;

// So many rows are scaled across together, side by side in memory, which suits the vector instructions.
constexpr int stripRows = 8;
constexpr int stripLanes = stripRows * channels;

/// A filter: the weight of a source pixel at a distance of up to `radius` from the centre.
struct Filter
{
    double (*weight)(double distance);
    double radius;
};

double sinc(double x)
{
    return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

double lanczos(double distance)
{
    return sinc(distance) * sinc(distance / 3);
}

double catmullRom(double distance)
{
    const double x = std::abs(distance);
    return x < 1 ? (1.5 * x - 2.5) * x * x + 1 : ((-0.5 * x + 2.5) * x - 4) * x + 2;
}

/// For steps of `step` source pixels from one target pixel to the next.
Filter filterFor(double step)
{
    return step < 0.5 ? Filter{catmullRom, 2} : Filter{lanczos, 3};
}

/// sample · weight / 2¹⁵, rounded.
inline int16_t weighted(int16_t sample, int16_t weight)
{
    return static_cast<int16_t>((((int32_t(sample) * weight) >> 14) + 1) >> 1);
}

/// Writes the weighted sum of `taps` series of samples to `out`, or adds it to what stands there.
template <int taps, bool adds>
[[gnu::always_inline]] inline void combine(const int16_t *const *series, const int16_t *weights, int count,
                                           int16_t *__restrict out)
{
    const int16_t *samples[taps];
    int16_t factors[taps];
    std::copy_n(series, taps, samples);
    std::copy_n(weights, taps, factors);
    for (int i = 0; i < count; ++i) {
        int sum = adds ? out[i] : 0;
        for (int tap = 0; tap < taps; ++tap)
            sum = static_cast<int16_t>(sum + weighted(samples[tap][i], factors[tap]));
        out[i] = static_cast<int16_t>(sum);
    }
}

template <bool adds>
[[gnu::always_inline]] inline void combineFew(const int16_t *const *series, const int16_t *weights, int taps,
                                              int count, int16_t *out)
{
    switch (taps) {
    case 1:
        return combine<1, adds>(series, weights, count, out);
    case 2:
        return combine<2, adds>(series, weights, count, out);
    case 3:
        return combine<3, adds>(series, weights, count, out);
    case 4:
        return combine<4, adds>(series, weights, count, out);
    case 5:
        return combine<5, adds>(series, weights, count, out);
    default:
        return combine<6, adds>(series, weights, count, out);
    }
}

[[gnu::always_inline]] inline void combineAll(const int16_t *const *series, const int16_t *weights, int taps,
                                              int count, int16_t *out)
{
    constexpr int few = 6;
    combineFew<false>(series, weights, std::min(taps, few), count, out);
    for (int tap = few; tap < taps; tap += few)
        combineFew<true>(series + tap, weights + tap, std::min(taps - tap, few), count, out);
}

/// The four bytes of a pixel as samples of a source.
inline uint64_t samplesOf(const uint8_t *pixel)
{
    uint32_t bytes;
    std::memcpy(&bytes, pixel, sizeof bytes);
    uint64_t spread = (bytes | uint64_t(bytes) << 16) & 0x0000FFFF0000FFFF;
    spread = (spread | spread << 8) & 0x00FF00FF00FF00FF;
    return spread << sourceBits;
}

/// Scales the pixels of a strip across: `strip` holds, pixel after pixel, the samples of all its rows.
MOSSLANTERN_VECTORIZED void scaleStrip(const int16_t *strip, const int *firsts, const int16_t *weights,
                                       int taps, int width, int16_t *const *rows)
{
    std::vector<const int16_t *> pixels(static_cast<size_t>(taps));
    for (int x = 0; x < width; ++x, weights += taps) {
        const int16_t *pixel = strip + static_cast<ptrdiff_t>(firsts[x]) * stripLanes;
        for (const int16_t *&place : pixels) {
            place = pixel;
            pixel += stripLanes;
        }
        alignas(32) int16_t scaled[stripLanes];
        combineAll(pixels.data(), weights, taps, stripLanes, scaled);
        for (int row = 0; row < stripRows; ++row)
            std::memcpy(rows[row] + static_cast<ptrdiff_t>(channels) * x, scaled + row * channels,
                        channels * sizeof(int16_t));
    }
}

/// Combines rows of `length` samples into bytes.
MOSSLANTERN_VECTORIZED void combineRows(const int16_t *const *rows, const int16_t *weights, int taps,
                                        int length, uint8_t *out)
{
    constexpr int blockLength = 1024;
    std::vector<const int16_t *> places(rows, rows + taps);
    for (int done = 0; done < length; done += blockLength) {
        const int count = std::min(blockLength, length - done);
        alignas(32) int16_t sums[blockLength];
        combineAll(places.data(), weights, taps, count, sums);
        for (int i = 0; i < count; ++i)
            out[done + i] =
                static_cast<uint8_t>(std::clamp((sums[i] + (1 << (targetBits - 1))) >> targetBits, 0, 255));
        for (const int16_t *&place : places)
            place += count;
    }
}

/// No colour of a premultiplied pixel is more than its opacity, which the filter's rings do not heed.
void boundByOpacity(uint8_t *pixels, int count)
{
    for (uint8_t *pixel = pixels; pixel < pixels + static_cast<ptrdiff_t>(channels) * count;
         pixel += channels) {
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = std::min(pixel[channel], pixel[3]);
    }
}

} // namespace

Resampler::Axis::Axis(double start, double length, int target, int limit)
{
    const double step = length / target;
    const double stretch = std::max(1.0, step);
    const Filter filter = filterFor(step);
    const double radius = filter.radius * stretch;
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
            const double weight = filter.weight((source - centre) / stretch);
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
                static_cast<int16_t>(upTo - used);
            used = upTo;
        }
    }
    dropUnused();
}

void Resampler::Axis::dropUnused()
{
    const auto isUsed = [](int16_t weight) { return weight != 0; };
    std::vector<int> leading(first.size());
    int needed = 1;
    for (size_t i = 0; i < first.size(); ++i) {
        const std::span all(weightsOf(static_cast<int>(i)), static_cast<size_t>(taps));
        const auto begin = std::ranges::find_if(all, isUsed);
        const auto end = std::find_if(all.rbegin(), all.rend(), isUsed).base();
        leading[i] = static_cast<int>(begin - all.begin());
        needed = std::max(needed, static_cast<int>(end - begin));
    }
    std::vector<int16_t> kept;
    kept.reserve(first.size() * static_cast<size_t>(needed));
    for (size_t i = 0; i < first.size(); ++i) {
        const int left = std::min(leading[i], taps - needed);
        const int16_t *from = weightsOf(static_cast<int>(i)) + left;
        kept.insert(kept.end(), from, from + needed);
        first[i] += left;
    }
    weights = std::move(kept);
    taps = needed;
}

Resampler::Resampler(QImage picture, const QRectF &source, QSize target)
    : m_picture(std::move(picture))
    , m_target(target)
    , m_across(source.x(), source.width(), target.width(), m_picture.width())
    , m_down(source.y(), source.height(), target.height(), m_picture.height())
{}

/// Source rows, scaled across, as far as they are needed at a time.
class Resampler::RowRing
{
public:
    RowRing(const Resampler &resampler, int first)
        : m_resampler(resampler)
        , m_next(first)
        , m_left(resampler.m_across.first.front())
        , m_size(resampler.m_down.taps + stripRows)
        , m_rowLength(static_cast<size_t>(channels) * static_cast<size_t>(resampler.m_target.width()))
        , m_samples(static_cast<size_t>(m_size) * m_rowLength)
        , m_firsts(resampler.m_across.first)
    {
        for (int &column : m_firsts)
            column -= m_left;
        m_strip.resize(static_cast<size_t>(m_firsts.back() + resampler.m_across.taps) * stripLanes);
    }

    /// Makes the rows before `end`; of those, the last `taps` stay.
    void makeUpTo(int end)
    {
        for (; m_next < end; m_next += stripRows)
            makeStrip();
    }

    [[nodiscard]] int16_t *row(int sourceRow)
    {
        return m_samples.data() + static_cast<size_t>(sourceRow % m_size) * m_rowLength;
    }

private:
    void makeStrip()
    {
        const QImage &picture = m_resampler.m_picture;
        std::array<const uint8_t *, stripRows> from{};
        std::array<int16_t *, stripRows> to{};
        for (int i = 0; i < stripRows; ++i) {
            from[static_cast<size_t>(i)] = picture.constScanLine(std::min(m_next + i, picture.height() - 1)) +
                                           static_cast<ptrdiff_t>(channels) * m_left;
            to[static_cast<size_t>(i)] = row(m_next + i);
        }
        uint8_t *strip = reinterpret_cast<uint8_t *>(m_strip.data());
        const size_t bytes = m_strip.size() / stripRows;
        for (size_t x = 0; x < bytes; x += channels) {
            for (const uint8_t *pixels : from) {
                const uint64_t samples = samplesOf(pixels + x);
                std::memcpy(strip, &samples, sizeof samples);
                strip += sizeof samples;
            }
        }
        const Axis &across = m_resampler.m_across;
        scaleStrip(m_strip.data(), m_firsts.data(), across.weights.data(), across.taps,
                   m_resampler.m_target.width(), to.data());
    }

    const Resampler &m_resampler;
    int m_next;
    int m_left;
    int m_size;
    size_t m_rowLength;
    std::vector<int16_t> m_samples;
    std::vector<int16_t> m_strip;
    std::vector<int> m_firsts;
};

void Resampler::makeRows(int first, int count, uint8_t *out) const
{
    if (count <= 0)
        return;
    RowRing ring(*this, m_down.first[static_cast<size_t>(first)]);
    std::vector<const int16_t *> rows(static_cast<size_t>(m_down.taps));
    const int length = channels * m_target.width();
    for (int y = first; y < first + count; ++y, out += length) {
        const int top = m_down.first[static_cast<size_t>(y)];
        ring.makeUpTo(top + m_down.taps);
        for (int tap = 0; tap < m_down.taps; ++tap)
            rows[static_cast<size_t>(tap)] = ring.row(top + tap);
        combineRows(rows.data(), m_down.weightsOf(y), m_down.taps, length, out);
        if (m_picture.format() != QImage::Format_RGBX8888)
            boundByOpacity(out, m_target.width());
    }
}

} // namespace mosslantern
