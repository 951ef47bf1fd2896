#include "render/fitted_slide.h"

#include "render/picture/picture_geometry.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"

namespace mosslantern {

namespace {

/// The longer side of what the ground is enlarged from.
constexpr int groundPixels = 32;

/// Each pixel of the image becomes the mean of those around it.
QImage softened(const QImage &image)
{
    QImage soft = newImage(image.size(), image.format());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (int channel = 0; channel < 4; ++channel) {
                int sum = 0;
                for (int dy = -1; dy <= 1; ++dy) {
                    const uchar *row = image.constScanLine(std::clamp(y + dy, 0, image.height() - 1));
                    for (int dx = -1; dx <= 1; ++dx)
                        sum += row[4 * std::clamp(x + dx, 0, image.width() - 1) + channel];
                }
                soft.scanLine(y)[4 * x + channel] = uchar((sum + 4) / 9);
            }
        }
    }
    return soft;
}

Background outOfFocus(const Background &background, QSize frame)
{
    const auto *fill = std::get_if<PictureFill>(&background);
    if (!fill)
        return background;
    const QSize small = frame.scaled(groundPixels, groundPixels, Qt::KeepAspectRatio).expandedTo({1, 1});
    const QRectF part = coverRegion(fill->part.size(), frame).translated(fill->part.topLeft());
    QImage ground = newImage(small, fill->image.format());
    Q_ASSERT(ground.bytesPerLine() == 4 * small.width());
    Resampler(fill->image, part, small).makeRows(0, small.height(), ground.bits());
    ground = softened(softened(ground));
    return PictureFill{ground, QRectF(ground.rect())};
}

} // namespace

FittedSlide::FittedSlide(const Canvas &canvas, Background background, std::vector<Layer> texts,
                         Corners corners, QSize frame)
    : m_ground(frame.isEmpty() ? std::optional<SlideComposition>()
                               : std::optional<SlideComposition>(std::in_place, Canvas{QSizeF(frame)},
                                                                 outOfFocus(background, frame),
                                                                 std::vector<Layer>(), Corners::square))
    , m_slide(canvas, std::move(background), std::move(texts), corners)
    , m_size(frame.isEmpty() ? m_slide.size() : frame)
{}

void FittedSlide::paintRows(int first, int count, uint8_t *out) const
{
    if (!m_ground) {
        m_slide.paintRows(first, count, out);
        return;
    }
    m_ground->paintRows(first, count, out);
    const QSize slide = m_slide.size();
    const QPoint at((m_size.width() - slide.width()) / 2, (m_size.height() - slide.height()) / 2);
    const int top = std::max(first, at.y());
    const int bottom = std::min(first + count, at.y() + slide.height());
    if (top >= bottom)
        return;
    std::vector<uint8_t> rows(size_t(4) * size_t(slide.width()) * size_t(bottom - top));
    m_slide.paintRows(top - at.y(), bottom - top, rows.data());
    for (int y = top; y < bottom; ++y)
        blendOver(out + 4 * (ptrdiff_t(y - first) * m_size.width() + at.x()),
                  rows.data() + 4 * ptrdiff_t(y - top) * slide.width(), slide.width());
}

} // namespace mosslantern
