#include "render/text/text_block.h"

#include "model/line_breaks.h"
#include "render/pixels/alpha_plane.h"
#include "render/pixels/continuous_corners.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>

#include <cmath>

namespace mosslantern {

namespace {

constexpr double sidePadding = 8;
constexpr double topPadding = 2;
constexpr double cornerRadius = 8;
constexpr double lineSpacing = -1;

// Wider blurs are computed on a smaller plane: nobody sees the difference, and memory stays bounded.
constexpr double widestFullSizeBlur = 32;

/// The whole pixels that `rect` touches, as far as they lie in `clip`; rectangles may be astronomically
/// large.
QRect touchedPixels(const QRectF &rect, const QRect &clip)
{
    const QRectF cut = rect & QRectF(clip);
    return cut.isEmpty() ? QRect() : cut.toAlignedRect() & clip;
}

AlphaPlane coverageOfRoundedBox(const QRectF &box, const QTransform &toPixels, const QRect &area)
{
    QImage mask = newImage(area.size(), QImage::Format_Alpha8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(toPixels * QTransform::fromTranslate(-area.x(), -area.y()));
    painter.fillPath(continuousRoundedRect(box, cornerRadius), Qt::black);
    painter.end();
    return alphaPlane(mask);
}

} // namespace

TextBlock::TextBlock(const QString &text, TextStyle style, bool isSubtitle, const RgbaColor &boxColor,
                     double canvasWidth)
    : m_look(styleLook(style, boxColor, isSubtitle && !text.isEmpty()))
    , m_font(layoutFont(style, fontSize(style, canvasWidth)))
    , m_texts(splitLines(text))
    , m_layouts(static_cast<size_t>(m_texts.size()))
{}

const LineLayout &TextBlock::layout(qsizetype line) const
{
    std::optional<LineLayout> &made = m_layouts[static_cast<size_t>(line)];
    if (!made)
        made.emplace(m_texts[line], m_font);
    return *made;
}

const std::vector<TextBlock::Extent> &TextBlock::stack() const
{
    if (!m_stack.empty())
        return m_stack;
    const double plainHeight = LineLayout(QString(), m_font).height();
    double top = 0;
    for (const QString &text : m_texts) {
        m_stack.push_back({top, lineHeight(text, m_font, plainHeight) + 2 * topPadding});
        top += m_stack.back().height + lineSpacing;
    }
    return m_stack;
}

double TextBlock::stackHeight() const
{
    return stack().back().top + stack().back().height;
}

double TextBlock::lineTop(qsizetype line) const
{
    return stack()[static_cast<size_t>(line)].top - stackHeight() / 2;
}

QSizeF TextBlock::size() const
{
    double width = 0;
    for (qsizetype line = 0; line < lineCount(); ++line)
        width = std::max(width, layout(line).width());
    return {width + 2 * sidePadding, stackHeight()};
}

QRectF TextBlock::lineBox(qsizetype line) const
{
    const double width = layout(line).width() + 2 * sidePadding;
    return {-width / 2, lineTop(line), width, stack()[static_cast<size_t>(line)].height};
}

QRectF TextBlock::drawnBounds(double pixelsPerPoint) const
{
    const QSizeF extent = size() * std::abs(pixelsPerPoint);
    const double reach = shadowReach(m_look.shadows, pixelsPerPoint);
    return QRectF(QPointF(-extent.width() / 2, -extent.height() / 2), extent)
        .adjusted(-reach, -reach, reach, reach);
}

std::vector<Layer> TextBlock::draw(QPointF centre, double pixelsPerPoint, const QRect &clip) const
{
    std::vector<Layer> layers;
    if (!std::isfinite(pixelsPerPoint) || pixelsPerPoint == 0 || !std::isfinite(centre.x()) ||
        !std::isfinite(centre.y()))
        return layers;

    const QTransform toPixels = QTransform::fromScale(pixelsPerPoint, pixelsPerPoint) *
                                QTransform::fromTranslate(centre.x(), centre.y());
    const double reduction = std::exp2(
        std::max(0.0, std::ceil(std::log2(widestBlur(m_look.shadows, pixelsPerPoint) / widestFullSizeBlur))));
    const double reach = shadowReach(m_look.shadows, pixelsPerPoint / reduction) * reduction;
    const int clipReach = static_cast<int>(std::ceil(std::min(reach, 1e6)));
    const QRect casting = clip.adjusted(-clipReach, -clipReach, clipReach, clipReach);

    for (qsizetype line = 0; line < lineCount(); ++line) {
        const QRectF strip =
            toPixels.mapRect(QRectF(0, lineTop(line), 1, stack()[static_cast<size_t>(line)].height));
        if (strip.bottom() + reach < clip.top() || strip.top() - reach > clip.bottom() + 1)
            continue;
        const QRectF box = toPixels.mapRect(lineBox(line));
        const QRectF withShadows = box.adjusted(-reach, -reach, reach, reach);
        const QRect visible = touchedPixels(withShadows, clip);
        if (visible.isEmpty())
            continue;
        if (m_look.shadows.empty()) {
            layers.push_back({visible.topLeft(), drawLine(line, toPixels, visible)});
        } else if (reduction == 1) {
            const QRect area = touchedPixels(withShadows, casting);
            QImage image = drawLine(line, toPixels, area);
            castShadows(image, alphaPlane(image), m_look.shadows, pixelsPerPoint);
            if (area != visible)
                image = copyOf(image, visible.translated(-area.topLeft()));
            layers.push_back({visible.topLeft(), image});
        } else {
            const auto smaller = [&](const QRect &rect) {
                return QRectF(rect.x() / reduction, rect.y() / reduction, rect.width() / reduction,
                              rect.height() / reduction);
            };
            const QRect area = smaller(touchedPixels(withShadows, casting)).toAlignedRect();
            const QTransform toReduced = toPixels * QTransform::fromScale(1 / reduction, 1 / reduction);
            QImage image = drawLine(line, toPixels, visible);
            castShadows(image, alphaPlane(drawLine(line, toReduced, area)), m_look.shadows,
                        pixelsPerPoint / reduction, smaller(visible).translated(-area.topLeft()));
            layers.push_back({visible.topLeft(), image});
        }
    }
    return layers;
}

QImage TextBlock::drawLine(qsizetype line, const QTransform &toPixels, const QRect &area) const
{
    const QRectF box = lineBox(line);
    const QTransform toArea = toPixels * QTransform::fromTranslate(-area.x(), -area.y());
    // Qt fills outlines twice as fast in its own pixel order.
    QImage image = newImage(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(toArea);
    if (m_look.lineBackground.opacity > 0)
        painter.fillRect(box.adjusted(-1, -1, 1, 1), toColor(m_look.lineBackground));
    painter.translate(box.left() + sidePadding, box.top() + topPadding);
    layout(line).draw(painter, toColor(m_look.textColor));
    painter.end();
    multiplyBy(image, coverageOfRoundedBox(box, toPixels, area));
    swapRedAndBlue(image);
    image.reinterpretAsFormat(QImage::Format_RGBA8888_Premultiplied);
    return image;
}

} // namespace mosslantern
