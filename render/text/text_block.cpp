#include "render/text/text_block.h"

#include "model/line_breaks.h"
#include "render/pixels/alpha_plane.h"
#include "render/pixels/continuous_corners.h"
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
    QImage mask(area.size(), QImage::Format_Alpha8);
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
{
    const double size = fontSize(style, canvasWidth);
    for (const QString &line : splitLines(text))
        m_lines.emplace_back(line, style, size);
}

QSizeF TextBlock::size() const
{
    double width = 0;
    for (const LineLayout &line : m_lines)
        width = std::max(width, line.width());
    const double lineHeight = m_lines.front().height() + 2 * topPadding;
    const auto count = static_cast<double>(m_lines.size());
    return {width + 2 * sidePadding, count * lineHeight + (count - 1) * lineSpacing};
}

QRectF TextBlock::lineBox(qsizetype line) const
{
    const LineLayout &layout = m_lines[static_cast<size_t>(line)];
    const QSizeF box(layout.width() + 2 * sidePadding, layout.height() + 2 * topPadding);
    const auto count = static_cast<double>(m_lines.size());
    const double stackHeight = count * box.height() + (count - 1) * lineSpacing;
    return {QPointF(-box.width() / 2,
                    -stackHeight / 2 + static_cast<double>(line) * (box.height() + lineSpacing)),
            box};
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
                image = image.copy(visible.translated(-area.topLeft()));
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
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(toArea);
    if (m_look.lineBackground.opacity > 0)
        painter.fillRect(box.adjusted(-1, -1, 1, 1), toColor(m_look.lineBackground));
    painter.translate(box.left() + sidePadding, box.top() + topPadding);
    m_lines[static_cast<size_t>(line)].draw(painter, toColor(m_look.textColor));
    painter.end();
    multiplyBy(image, coverageOfRoundedBox(box, toPixels, area));
    swapRedAndBlue(image);
    image.reinterpretAsFormat(QImage::Format_RGBA8888_Premultiplied);
    return image;
}

} // namespace mosslantern
