#pragma once

#include "render/slide_composition.h"

namespace mosslantern {

/// A slide to be painted, alone or in the middle of a larger picture whose ground is the slide's own
/// background out of focus. Painting only reads, as that of a SlideComposition.
class FittedSlide
{
public:
    /// `frame`: the size of the larger picture in pixels, at least that of the canvas; empty without one.
    FittedSlide(const Canvas &canvas, Background background, std::vector<Layer> texts, Corners corners,
                QSize frame);

    [[nodiscard]] QSize size() const { return m_size; }

    /// Paints `count` rows from row `first` on: premultiplied RGBA, row after row.
    void paintRows(int first, int count, uint8_t *out) const;

private:
    std::optional<SlideComposition> m_ground;
    SlideComposition m_slide;
    QSize m_size;
};

} // namespace mosslantern
