#pragma once

#include "render/text/line_layout.h"
#include "render/text/style_look.h"

#include <QtCore/QRect>
#include <QtGui/QImage>

#include <optional>
#include <vector>

namespace mosslantern {

/// A picture of premultiplied RGBA and where its top left lies, in pixels of the canvas.
struct Layer
{
    QPoint at;
    QImage image; // Format_RGBA8888_Premultiplied
};

/// One text block, laid out: a stack of line boxes, centred on each other. Lengths are points at text scale
/// 1; the origin is the centre of the block.
class TextBlock
{
public:
    /// `canvasWidth` in points gives the text size.
    TextBlock(const QString &text, TextStyle style, bool isSubtitle, const RgbaColor &boxColor,
              double canvasWidth);

    [[nodiscard]] qsizetype lineCount() const { return m_texts.size(); }

    /// The padded box of a line.
    [[nodiscard]] QRectF lineBox(qsizetype line) const;

    /// Width of the widest line box, height of the stack.
    [[nodiscard]] QSizeF size() const;

    /// Draws the lines and their shadows with the block's centre at `centre` (pixels), `pixelsPerPoint`
    /// pixels to a point of the block (text scale included; negative turns the block upside down). One layer
    /// a line, from the back to the front, cut to `clip`; nothing for a factor of 0 or not a number.
    [[nodiscard]] std::vector<Layer> draw(QPointF centre, double pixelsPerPoint, const QRect &clip) const;

    /// The rectangle that draw() can touch, in pixels around the block's centre.
    [[nodiscard]] QRectF drawnBounds(double pixelsPerPoint) const;

private:
    struct Extent
    {
        double top = 0; // below the top of the stack
        double height = 0;
    };

    /// Where each line box stands in the stack.
    [[nodiscard]] const std::vector<Extent> &stack() const;
    [[nodiscard]] double stackHeight() const;

    /// From the centre of the block to the top of a line box.
    [[nodiscard]] double lineTop(qsizetype line) const;

    /// Lines are laid out when they are first needed: of a very long text, few show.
    [[nodiscard]] const LineLayout &layout(qsizetype line) const;

    [[nodiscard]] QImage drawLine(qsizetype line, const QTransform &toPixels, const QRect &area) const;

    StyleLook m_look;
    QFont m_font;
    QStringList m_texts;
    mutable std::vector<Extent> m_stack;
    mutable std::vector<std::optional<LineLayout>> m_layouts;
};

} // namespace mosslantern
