#pragma once

#include "app/cli/option_reader.h"
#include "model/aspect_ratio.h"
#include "render/slide_values.h"

#include <vector>

namespace mosslantern {

/// How slides are to look: everything of them but their texts, and their shape.
struct SlideDesign
{
    /// The box is white for "boxed" and black for the other looks where the command line does not say.
    SlideStyle style;
    bool hasOwnBoxColor = false;
    AspectRatio shape = AspectRatio::tiktok;

    void setTextStyle(TextStyle textStyle);
};

/// The options that tell a design.
std::vector<OptionSpec> designOptions();

/// What they tell; look at options.problem() before using it.
SlideDesign readDesign(OptionReader &options);

} // namespace mosslantern
