#include "render/slide_composition.h"

#include "render/pixels/continuous_corners.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"
#include "render/pixels/shadows.h"

#include <QtGui/QPainter>

#include <cmath>
#include <cstring>

namespace mosslantern {

namespace {

constexpr double cornerRadius = 8;

const std::vector<Shadow> &canvasShadow()
{
    static const std::vector<Shadow> shadow{{{0, 0, 0, 0.33}, 2, {0, 0}}};
    return shadow;
}

/// Coverage of the rounded canvas in a rectangle of its pixels.
AlphaPlane roundedCoverage(const Canvas &canvas, const QRect &area)
{
    QImage mask = newImage(area.size(), QImage::Format_Alpha8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-area.topLeft());
    const QRectF pixels(QPointF(), canvas.pixelSize());
    painter.fillPath(continuousRoundedRect(pixels, cornerRadius * canvas.pixelRatio), Qt::black);
    painter.end();
    return alphaPlane(mask);
}

void append(std::vector<Layer> &layers, std::vector<Layer> more)
{
    layers.insert(layers.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

std::vector<Layer> drawTexts(const SlideValues &values, const Canvas &canvas)
{
    const QRect clip(QPoint(), canvas.pixelSize());
    const SlideStyle &style = values.style;
    const auto block = [&](const QString &text, bool isSubtitle, QPointF position, double scale) {
        const QPointF centre(position.x() * canvas.size.width() * canvas.pixelRatio,
                             position.y() * canvas.size.height() * canvas.pixelRatio);
        return TextBlock(text, style.textStyle, isSubtitle, style.boxColor(), canvas.size.width())
            .draw(centre, scale * canvas.pixelRatio, clip);
    };
    std::vector<Layer> layers = block(values.text, false, style.textPos(), style.textScale);
    if (!values.subtitle.isEmpty())
        append(layers, block(values.subtitle, true, style.subtitlePos(), style.subtitleScale));
    return layers;
}

SlideComposition::SlideComposition(const Canvas &canvas, Background background, std::vector<Layer> texts,
                                   Corners corners)
    : m_canvas(canvas)
    , m_size(canvas.pixelSize())
    , m_texts(std::move(texts))
    , m_corners(corners)
{
    bool opaque = false;
    if (auto *fill = std::get_if<PictureFill>(&background)) {
        opaque = fill->image.format() == QImage::Format_RGBX8888;
        m_picture.emplace(std::move(fill->image), fill->part, m_size);
    } else {
        m_color = std::get<RgbaColor>(background);
        opaque = toPixel(m_color)[3] == 255;
    }
    if (opaque && corners == Corners::rounded)
        m_corner = opaqueCorner();
}

std::optional<SlideComposition::Corner> SlideComposition::opaqueCorner() const
{
    const int extent =
        static_cast<int>(std::ceil(continuousCornerExtent * cornerRadius * m_canvas.pixelRatio));
    if (m_size.width() < 2 * extent || m_size.height() < 2 * extent)
        return {};
    const int reach = static_cast<int>(shadowReach(canvasShadow(), m_canvas.pixelRatio));
    // Nothing lies outside the canvas; inside, beyond the corner, everything is opaque.
    const int side = extent + 2 * reach;
    const AlphaPlane coverage = roundedCoverage(m_canvas, {0, 0, extent, extent});
    QImage patch = newImage({side, side}, QImage::Format_RGBA8888_Premultiplied);
    patch.fill(0);
    for (int y = reach; y < side; ++y) {
        for (int x = reach; x < side; ++x) {
            const bool inCorner = x < reach + extent && y < reach + extent;
            patch.scanLine(y)[4 * x + 3] = inCorner ? coverage.row(y - reach)[x - reach] : 255;
        }
    }
    castShadows(patch, alphaPlane(patch), canvasShadow(), m_canvas.pixelRatio);
    return Corner{coverage, alphaPlane(copyOf(patch, {reach, reach, extent, extent}))};
}

void SlideComposition::paintRows(int first, int count, uint8_t *out) const
{
    if (m_corners == Corners::square) {
        paintContent(first, count, out);
        return;
    }
    if (!m_corner) {
        frameRows(first, count, out);
        return;
    }
    paintContent(first, count, out);
    for (int y = first; y < first + count; ++y, out += static_cast<ptrdiff_t>(4) * m_size.width())
        frameOpaqueRow(y, out);
}

QImage SlideComposition::image() const
{
    QImage image = newImage(m_size, QImage::Format_RGBA8888_Premultiplied);
    Q_ASSERT(image.bytesPerLine() == 4 * m_size.width());
    paintRows(0, m_size.height(), image.bits());
    return image;
}

void SlideComposition::paintContent(int first, int count, uint8_t *out) const
{
    const int width = m_size.width();
    const auto pixelAt = [&](int x, int y) {
        return out + 4 * (static_cast<ptrdiff_t>(y - first) * width + x);
    };
    if (m_picture) {
        m_picture->makeRows(first, count, out);
    } else {
        const Pixel pixel = premultiplied(toPixel(m_color));
        for (ptrdiff_t i = 0; i < static_cast<ptrdiff_t>(width) * count; ++i)
            std::memcpy(out + 4 * i, pixel.data(), pixel.size());
    }
    for (const Layer &layer : m_texts) {
        const int top = std::max(first, layer.at.y());
        const int bottom = std::min(first + count, layer.at.y() + layer.image.height());
        for (int y = top; y < bottom; ++y)
            blendOver(pixelAt(layer.at.x(), y), layer.image.constScanLine(y - layer.at.y()),
                      layer.image.width());
    }
}

void SlideComposition::frameOpaqueRow(int y, uint8_t *row) const
{
    const int extent = m_corner->coverage.height();
    const int cornerY = std::min(y, m_size.height() - 1 - y);
    if (cornerY >= extent)
        return;
    const uint8_t *coverage = m_corner->coverage.row(cornerY);
    const uint8_t *withShadow = m_corner->withShadow.row(cornerY);
    const auto frame = [&](uint8_t *pixel, int cornerX) {
        for (int channel = 0; channel < 4; ++channel)
            pixel[channel] = multiplied(pixel[channel], coverage[cornerX]);
        fillUp(reinterpret_cast<uint32_t *>(pixel), withShadow + cornerX, 1, {0, 0, 0, 255});
    };
    for (int x = 0; x < extent; ++x) {
        frame(row + static_cast<ptrdiff_t>(4) * x, x);
        frame(row + static_cast<ptrdiff_t>(4) * (m_size.width() - 1 - x), x);
    }
}

void SlideComposition::frameRows(int first, int count, uint8_t *out) const
{
    const int reach = static_cast<int>(shadowReach(canvasShadow(), m_canvas.pixelRatio));
    // A wide blur halves its plane again and again: always the same rows together.
    constexpr int alignment = 64;
    const int top = std::max(0, first - reach) / alignment * alignment;
    const int bottom = std::min(m_size.height(), first + count + reach);
    QImage rows = newImage({m_size.width(), bottom - top}, QImage::Format_RGBA8888_Premultiplied);
    paintContent(top, bottom - top, rows.bits());
    multiplyBy(rows, roundedCoverage(m_canvas, {0, top, m_size.width(), bottom - top}));
    castShadows(rows, alphaPlane(rows), canvasShadow(), m_canvas.pixelRatio);
    std::memcpy(out, rows.constScanLine(first - top),
                static_cast<size_t>(4) * static_cast<size_t>(m_size.width()) * static_cast<size_t>(count));
}

} // namespace mosslantern
