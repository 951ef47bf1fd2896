#include "render/export/png_filter.h"

#include "render/pixels/vectorized.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace mosslantern {

namespace {

constexpr int pixelBytes = 4;

/// Free of branches, so that it can be vectorised.
inline int16_t paethPredictor(int16_t left, int16_t up, int16_t corner)
{
    const auto toLeft = static_cast<int16_t>(std::abs(static_cast<int16_t>(up - corner)));
    const auto toUp = static_cast<int16_t>(std::abs(static_cast<int16_t>(left - corner)));
    const auto toCorner = static_cast<int16_t>(std::abs(static_cast<int16_t>(left + up - 2 * corner)));
    const int16_t upOrCorner = toUp <= toCorner ? up : corner;
    return ((toLeft <= toUp) & (toLeft <= toCorner)) ? left : upOrCorner;
}

MOSSLANTERN_VECTORIZED
void filterFrom(const uint8_t *__restrict row, const uint8_t *__restrict above, int bytes,
                uint8_t *__restrict out)
{
    for (int i = pixelBytes; i < bytes; ++i) {
        const int16_t nearest = paethPredictor(row[i - pixelBytes], above[i], above[i - pixelBytes]);
        out[i] = static_cast<uint8_t>(row[i] - nearest);
    }
}

MOSSLANTERN_VECTORIZED
void applyFilter(int filter, const uint8_t *__restrict row, const uint8_t *__restrict left,
                 const uint8_t *__restrict above, const uint8_t *__restrict corner, int bytes,
                 uint8_t *__restrict out)
{
    switch (filter) {
    case 1:
        for (int i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - left[i]);
        break;
    case 2:
        for (int i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - above[i]);
        break;
    case 3:
        for (int i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - (left[i] + above[i]) / 2);
        break;
    default:
        for (int i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - paethPredictor(left[i], above[i], corner[i]));
    }
}

/// The sum of what the bytes are away from 0, either way.
MOSSLANTERN_VECTORIZED
uint64_t magnitude(const uint8_t *bytes, int count)
{
    uint64_t sum = 0;
    for (int i = 0; i < count; ++i)
        sum += static_cast<uint64_t>(std::min(bytes[i], static_cast<uint8_t>(-bytes[i])));
    return sum;
}

} // namespace

void paethFilter(const uint8_t *row, const uint8_t *above, int bytes, uint8_t *out)
{
    // The first pixel has nothing to its left: the predictor is the byte above.
    for (int i = 0; i < pixelBytes; ++i)
        out[i] = static_cast<uint8_t>(row[i] - above[i]);
    filterFrom(row, above, bytes, out);
}

void bestFilter(const uint8_t *row, const uint8_t *above, int bytes, int pixelBytes, uint8_t *out)
{
    // Left of the first pixel there are zeros.
    const std::vector<uint8_t> zeros(size_t(bytes) + size_t(pixelBytes));
    std::vector<uint8_t> padded(zeros.size());
    std::vector<uint8_t> paddedAbove(zeros.size());
    std::copy_n(row, bytes, padded.begin() + pixelBytes);
    std::copy_n(above, bytes, paddedAbove.begin() + pixelBytes);
    const uint8_t *left = padded.data();
    const uint8_t *corner = paddedAbove.data();
    std::vector<uint8_t> tried(static_cast<size_t>(bytes));
    uint64_t least = UINT64_MAX;
    // None, the first filter, is hardly ever the best of a slide's rows.
    for (uint8_t filter = 1; filter < 5; ++filter) {
        applyFilter(filter, row, left, above, corner, bytes, tried.data());
        if (const uint64_t sum = magnitude(tried.data(), bytes); sum < least) {
            least = sum;
            out[0] = filter;
            std::copy_n(tried.begin(), bytes, out + 1);
        }
    }
}

} // namespace mosslantern
