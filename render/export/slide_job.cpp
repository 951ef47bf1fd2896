#include "render/export/slide_job.h"

#include "model/slide.h"

namespace mosslantern {

SlideValues slideValues(const Slide &slide)
{
    return {.text = slide.text(), .subtitle = slide.subtitle(), .style = slide.style()};
}

SlideJob exportJob(const SlideValues &values, const QString &picturePath, AspectRatio aspectRatio,
                   const ExportOptions &options)
{
    return {values,           options.canvas(aspectRatio), picturePath, options.drawnCorners(),
            options.encoding, options.frame(aspectRatio)};
}

SlideJob exportJob(const Slide &slide, AspectRatio aspectRatio, const ExportOptions &options)
{
    return exportJob(slideValues(slide), slide.imageURL().toLocalFile(), aspectRatio, options);
}

} // namespace mosslantern
