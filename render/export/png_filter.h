#pragma once

#include <cstdint>

namespace mosslantern {

/// The PNG filter "Paeth" for one row of four-byte pixels: out = row − predictor(left, above, above left).
/// All three hold `bytes` bytes; above the first row there are zeros.
void paethFilter(const uint8_t *row, const uint8_t *above, int bytes, uint8_t *out);

/// As PNG's heuristic has it, the best of its filters for a row of `pixelBytes` bytes a pixel: writes
/// the filter's number and the filtered bytes, `bytes` + 1 in all.
void bestFilter(const uint8_t *row, const uint8_t *above, int bytes, int pixelBytes, uint8_t *out);

} // namespace mosslantern
