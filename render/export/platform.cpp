#include "render/export/platform.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 megabyte = 1'000'000;
constexpr QSize fullScreen{1080, 1920};
constexpr QSize portrait{1080, 1350};
constexpr double fullScreenShape = 9.0 / 16;
constexpr double portraitShape = 4.0 / 5;
constexpr auto jpeg = SlideFormat::jpeg;

constexpr Platform platforms[] = {
    {"tiktok"_L1, "TikTok"_L1, fullScreen, fullScreenShape, 1, jpeg, 20 * megabyte, 35},
    {"instagram"_L1, "Instagram"_L1, portrait, portraitShape, 1.91, jpeg, 8 * megabyte, 10},
    {"reels"_L1, "Reels"_L1, fullScreen, fullScreenShape, fullScreenShape, jpeg, 8 * megabyte, 100, false,
     true},
    {"stories"_L1, "Stories"_L1, fullScreen, fullScreenShape, fullScreenShape, jpeg, 8 * megabyte, 100},
    {"shorts"_L1, "Shorts"_L1, fullScreen, fullScreenShape, 1, jpeg, 2 * megabyte, 60, false, true},
    {"threads"_L1, "Threads"_L1, portrait, 0.1, 10, jpeg, 8 * megabyte, 20},
    {"facebook"_L1, "Facebook"_L1, portrait, fullScreenShape, 1.91, jpeg, 4 * megabyte, 10},
    {"linkedin"_L1, "LinkedIn"_L1, portrait, fullScreenShape, 1.91, jpeg, 2 * megabyte, 50, true},
    {"pinterest"_L1, "Pinterest"_L1, {1000, 1500}, 2.0 / 3, 1, jpeg, 10 * megabyte, 5},
};

} // namespace

bool Platform::takes(AspectRatio aspectRatio) const
{
    constexpr double rounding = 1e-9;
    const double shape = widthToHeight(aspectRatio);
    return shape >= narrowest - rounding && shape <= widest + rounding;
}

std::span<const Platform> allPlatforms()
{
    return platforms;
}

const Platform *platformNamed(QStringView name)
{
    const auto found =
        std::ranges::find_if(platforms, [name](const Platform &platform) { return name == platform.name; });
    return found == std::end(platforms) ? nullptr : &*found;
}

} // namespace mosslantern
