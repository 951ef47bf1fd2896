#include "app/cli/design_options.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {
constexpr double smallestScale = 0.01;
constexpr double largestScale = 100;
} // namespace

std::vector<OptionSpec> designOptions()
{
    return {
        {"style"_L1, "STYLE"_L1, "classic (the default), boxed, modern or neon"_L1},
        {"shape"_L1, "SHAPE"_L1, "9:16 (the default), 4:5 or 1:1"_L1},
        {"text-pos"_L1, "X,Y"_L1,
         "centre of the main text as fractions of width and height; 0.5,0.5 by default"_L1},
        {"text-scale"_L1, "F"_L1, "size of the main text; 1 by default"_L1},
        {"subtitle-pos"_L1, "X,Y"_L1, "centre of the subtitle; 0.5,0.8 by default"_L1},
        {"subtitle-scale"_L1, "F"_L1, "size of the subtitle; 1 by default"_L1},
        {"box-color"_L1, "HEX"_L1,
         "box colour, RRGGBB or RRGGBBAA; by default FFFFFF for boxed and 000000 for the others"_L1},
    };
}

void SlideDesign::setTextStyle(TextStyle textStyle)
{
    style.textStyle = textStyle;
    if (!hasOwnBoxColor)
        style.setBoxColor(textStyle == TextStyle::boxed ? opaqueWhite : opaqueBlack);
}

SlideDesign readDesign(OptionReader &options)
{
    SlideDesign design;
    SlideStyle &style = design.style;
    if (const std::optional<RgbaColor> color = options.color("box-color"_L1)) {
        style.setBoxColor(*color);
        design.hasOwnBoxColor = true;
    }
    design.setTextStyle(options.style("style"_L1).value_or(style.textStyle));
    design.shape = options.shape("shape"_L1).value_or(design.shape);
    style.setTextPos(options.position("text-pos"_L1).value_or(style.textPos()));
    style.textScale = options.real("text-scale"_L1, smallestScale, largestScale).value_or(style.textScale);
    style.setSubtitlePos(options.position("subtitle-pos"_L1).value_or(style.subtitlePos()));
    style.subtitleScale =
        options.real("subtitle-scale"_L1, smallestScale, largestScale).value_or(style.subtitleScale);
    return design;
}

} // namespace mosslantern
