#include "render/text/style_look.h"

#include <algorithm>
#include <cmath>

namespace mosslantern {

namespace {

constexpr RgbaColor purple{175 / 255.0, 82 / 255.0, 222 / 255.0, 1};
constexpr RgbaColor darkPill{0, 0, 0, 0.6};

std::vector<Shadow> outline(const RgbaColor &color)
{
    if (color.opacity <= 0)
        return {};
    return {{color, 0, {0, 0}},  {color, 0, {1, 1}},  {color, 0, {-1, -1}},
            {color, 0, {1, -1}}, {color, 0, {-1, 1}}, {color, 1, {0, 0}}};
}

} // namespace

double baseFontSize(double canvasWidth)
{
    const double ratio = canvasWidth / 350;
    return ratio < 3 ? 32 * std::max(ratio, 0.1) : 96;
}

double fontSize(TextStyle style, double canvasWidth)
{
    const double size = baseFontSize(canvasWidth);
    switch (style) {
    case TextStyle::boxed:
        return 0.9 * size;
    case TextStyle::modern:
        return 1.1 * size;
    case TextStyle::classic:
    case TextStyle::neon:
        break;
    }
    return size;
}

RgbaColor contrastColor(const RgbaColor &boxColor)
{
    const double average = (boxColor.red + boxColor.green + boxColor.blue) / 3;
    return std::isnan(average) || average > 0.5 ? opaqueBlack : opaqueWhite;
}

StyleLook styleLook(TextStyle style, const RgbaColor &boxColor, bool filledSubtitle)
{
    const RgbaColor pill = filledSubtitle ? darkPill : clearColor;
    switch (style) {
    case TextStyle::classic:
        return {opaqueWhite, clearColor, outline(boxColor)};
    case TextStyle::boxed:
        return {contrastColor(boxColor), boxColor, {}};
    case TextStyle::modern:
        return {opaqueWhite, pill, {{{0, 0, 0, 0.5}, 4, {0, 0}}}};
    case TextStyle::neon:
        return {opaqueWhite, pill, {{purple, 10, {0, 0}}}};
    }
    Q_UNREACHABLE();
}

} // namespace mosslantern
