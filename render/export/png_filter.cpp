#include "render/export/png_filter.h"

#include "render/pixels/vectorized.h"

#include <cstdlib>

namespace mosslantern {

namespace {

constexpr int pixelBytes = 4;

/// Free of branches, so that it can be vectorised.
MOSSLANTERN_VECTORIZED
void filterFrom(const uint8_t *__restrict row, const uint8_t *__restrict above, int bytes,
                uint8_t *__restrict out)
{
    for (int i = pixelBytes; i < bytes; ++i) {
        const auto left = static_cast<int16_t>(row[i - pixelBytes]);
        const auto up = static_cast<int16_t>(above[i]);
        const auto corner = static_cast<int16_t>(above[i - pixelBytes]);
        const auto toLeft = static_cast<int16_t>(std::abs(static_cast<int16_t>(up - corner)));
        const auto toUp = static_cast<int16_t>(std::abs(static_cast<int16_t>(left - corner)));
        const auto toCorner = static_cast<int16_t>(std::abs(static_cast<int16_t>(left + up - 2 * corner)));
        const int16_t upOrCorner = toUp <= toCorner ? up : corner;
        const int16_t nearest = ((toLeft <= toUp) & (toLeft <= toCorner)) ? left : upOrCorner;
        out[i] = static_cast<uint8_t>(row[i] - nearest);
    }
}

} // namespace

void paethFilter(const uint8_t *row, const uint8_t *above, int bytes, uint8_t *out)
{
    // The first pixel has nothing to its left: the predictor is the byte above.
    for (int i = 0; i < pixelBytes; ++i)
        out[i] = static_cast<uint8_t>(row[i] - above[i]);
    filterFrom(row, above, bytes, out);
}

} // namespace mosslantern
