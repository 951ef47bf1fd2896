#include "render/export/slide_job.h"

#include "model/rgba_color.h"
#include "model/slide.h"

namespace mosslantern {

SlideValues slideValues(const Slide &slide)
{
    return {.text = slide.text(),
            .subtitle = slide.subtitle(),
            .style = slide.textStyle(),
            .textPos = {slide.textX(), slide.textY()},
            .textScale = slide.textScale(),
            .subtitlePos = {slide.subtitleX(), slide.subtitleY()},
            .subtitleScale = slide.subtitleScale(),
            .boxColor = colorFromHex(slide.boxColorHex())};
}

SlideJob exportJob(const Slide &slide, AspectRatio aspectRatio)
{
    return {slideValues(slide), exportCanvas(aspectRatio), slide.imageURL().toLocalFile()};
}

} // namespace mosslantern
