#pragma once

#include "app/cli/option_reader.h"
#include "model/aspect_ratio.h"
#include "render/slide_values.h"

#include <vector>

namespace mosslantern {

/// How slides are to look: everything of them but their texts, and their shape.
struct SlideDesign
{
    TextStyle style = TextStyle::classic;
    AspectRatio shape = AspectRatio::tiktok;
    QPointF textPos{0.5, 0.5};
    double textScale = 1;
    QPointF subtitlePos{0.5, 0.8};
    double subtitleScale = 1;
    /// White for "boxed" and black for the other styles where the command line does not say.
    RgbaColor boxColor;
};

/// The options that tell a design.
std::vector<OptionSpec> designOptions();

/// What they tell; look at options.problem() before using it.
SlideDesign readDesign(OptionReader &options);

} // namespace mosslantern
