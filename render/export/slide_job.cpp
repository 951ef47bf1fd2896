#include "render/export/slide_job.h"

#include "model/slide.h"

namespace mosslantern {

SlideValues slideValues(const Slide &slide)
{
    return {.text = slide.text(), .subtitle = slide.subtitle(), .style = slide.style()};
}

SlideJob exportJob(const Slide &slide, AspectRatio aspectRatio)
{
    return {slideValues(slide), exportCanvas(aspectRatio), slide.imageURL().toLocalFile()};
}

} // namespace mosslantern
