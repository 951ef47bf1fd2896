#include "render/export/fitting_quality.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace mosslantern {

namespace {

constexpr int lowestQuality = 1;

struct Sized
{
    int quality = 0;
    qint64 bytes = 0;
};

/// The quality between two that is likely to give `wanted` bytes: the logarithm of the size is nearly
/// straight.
int between(const Sized &low, const Sized &high, qint64 wanted)
{
    const auto log = [](qint64 bytes) { return std::log(double(std::max<qint64>(bytes, 1))); };
    const double span = log(high.bytes) - log(low.bytes);
    const double part = span > 0 ? (log(wanted) - log(low.bytes)) / span : 0.5;
    const int quality = low.quality + int(std::floor(part * (high.quality - low.quality)));
    return std::clamp(quality, low.quality + 1, high.quality - 1);
}

} // namespace

Result<QByteArray> encodeWithin(qint64 mostBytes, int quality,
                                const std::function<Result<QByteArray>(int)> &encode)
{
    Result<QByteArray> file = encode(quality);
    if (!file || file->size() <= mostBytes)
        return file;
    Sized high{quality, file->size()};
    std::optional<Sized> low;
    QByteArray best = *file;
    for (int done = 1; done < mostEncodings; ++done) {
        if (high.quality - (low ? low->quality : lowestQuality - 1) <= 1)
            break;
        int next = 0;
        if (low)
            next = between(*low, high, mostBytes);
        else if (done + 1 == mostEncodings)
            next = lowestQuality;
        else // half the size is about half the quality
            next = std::clamp(int(double(high.quality) * double(mostBytes) / double(high.bytes)),
                              lowestQuality, high.quality - 1);
        file = encode(next);
        if (!file)
            return file;
        const bool fits = file->size() <= mostBytes;
        (fits ? low.emplace() : high) = {next, file->size()};
        if (fits || !low)
            best = std::move(*file);
    }
    return best;
}

} // namespace mosslantern
