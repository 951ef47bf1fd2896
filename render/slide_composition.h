#pragma once

#include "render/canvas.h"
#include "render/corners.h"
#include "render/pixels/alpha_plane.h"
#include "render/pixels/resampler.h"
#include "render/slide_values.h"
#include "render/text/text_block.h"

#include <optional>
#include <variant>

namespace mosslantern {

/// What stands behind the texts: a part of a picture stretched over the canvas, or a colour.
struct PictureFill
{
    QImage image; // RGBA8888 premultiplied, or RGBX8888 when it is opaque
    QRectF part;  // in pixels of `image`
};
using Background = std::variant<PictureFill, RgbaColor>;

/// Standard gray where a slide has no picture, and at 20 % where its picture cannot be shown.
inline constexpr RgbaColor noPictureColor{142 / 255.0, 142 / 255.0, 147 / 255.0, 1};
inline constexpr RgbaColor missingPictureColor{142 / 255.0, 142 / 255.0, 147 / 255.0, 0.2};

/// The text blocks of a slide, main text below subtitle, as layers from the back to the front. Uses fonts:
/// call it on one thread.
[[nodiscard]] std::vector<Layer> drawTexts(const SlideValues &values, const Canvas &canvas);

/// A whole slide, ready to be painted: background, texts, rounded corners (radius 8 points, continuous) and
/// the shadow of the canvas (black 33 %, radius 2) in what the corners leave free, if they are not square.
/// The one painter of slides. Painting only reads: rows may be painted in any grouping, in several threads at
/// once.
class SlideComposition
{
public:
    SlideComposition(const Canvas &canvas, Background background, std::vector<Layer> texts,
                     Corners corners = Corners::rounded);

    [[nodiscard]] QSize size() const { return m_size; }

    /// Paints `count` rows from row `first` on: premultiplied RGBA, row after row.
    void paintRows(int first, int count, uint8_t *out) const;

    /// The whole slide, Format_RGBA8888_Premultiplied.
    [[nodiscard]] QImage image() const;

private:
    /// One corner of an opaque canvas: its coverage, and the opacity once its shadow lies below. The top left
    /// one; the others mirror it.
    struct Corner
    {
        AlphaPlane coverage;
        AlphaPlane withShadow;
    };

    void paintContent(int first, int count, uint8_t *out) const;
    void frameOpaqueRow(int y, uint8_t *row) const;
    void frameRows(int first, int count, uint8_t *out) const;
    [[nodiscard]] std::optional<Corner> opaqueCorner() const;

    Canvas m_canvas;
    QSize m_size;
    RgbaColor m_color;
    std::optional<Resampler> m_picture;
    std::vector<Layer> m_texts;
    Corners m_corners;
    std::optional<Corner> m_corner; // none: the content is not opaque, or too small for four whole corners
};

} // namespace mosslantern
