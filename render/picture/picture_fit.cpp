#include "render/picture/picture_fit.h"

#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"

#include <algorithm>

namespace mosslantern {

namespace {

// The sums of the four channels of a block stay below 2³².
constexpr int largestFactor = 4096;

int blocks(int pixels, int factor)
{
    return (pixels + factor - 1) / factor;
}

} // namespace

int reductionFactor(double scale)
{
    return std::clamp(int(1 / scale), 1, largestFactor);
}

QSize PictureFit::size() const
{
    return {blocks(crop.width(), factor), blocks(crop.height(), factor)};
}

qint64 PictureFit::bytes() const
{
    // Turning makes a second image.
    return qint64(size().width()) * size().height() * (orientation.isUpright() ? 4 : 8);
}

PictureFit fitOf(QSize stored, Orientation orientation, const PictureRequest &request)
{
    PictureFit fit;
    fit.fullSize = turned(stored, orientation);
    fit.orientation = orientation;
    fit.factor = reductionFactor(neededScale(fit.fullSize, request));
    while (isLavish(fit.fullSize, request, 1.0 / fit.factor, 1.0 / (fit.factor + 1)))
        ++fit.factor;
    const QRectF wanted = turned(neededRegion(fit.fullSize, request), fit.fullSize, orientation.inverse());
    const QRect shown = pixelsShowing(
        wanted, 1.0 / fit.factor, {blocks(stored.width(), fit.factor), blocks(stored.height(), fit.factor)});
    const QRect inPixels(shown.topLeft() * fit.factor, shown.size() * fit.factor);
    fit.region = turned(QRectF(inPixels), stored, orientation);
    fit.crop = inPixels.intersected(QRect(QPoint(), stored));
    return fit;
}

RowReducer::RowReducer(QImage &image, const QRect &crop, int factor)
    : m_image(image)
    , m_crop(crop)
    , m_factor(factor)
    , m_sums(factor > 1 ? size_t(image.width()) : 0)
{}

void RowReducer::add(const QImage &rows, int top)
{
    const int end = std::min(top + rows.height(), m_crop.bottom() + 1);
    for (int from = std::max(top, m_crop.top()); from < end; from += rowsPerStrip) {
        QImage strip =
            rows.copy(m_crop.left(), from - top, m_crop.width(), std::min(rowsPerStrip, end - from));
        strip.convertTo(m_image.format());
        for (int row = 0; row < strip.height(); ++row)
            addRow(strip.constScanLine(row));
    }
}

void RowReducer::addRow(const uchar *row)
{
    if (m_factor == 1) {
        std::copy_n(row, qsizetype(m_crop.width()) * 4, m_image.scanLine(m_rows++));
        return;
    }
    const uchar *const end = row + qsizetype(m_crop.width()) * 4;
    for (Sum &sum : m_sums) {
        const uchar *const blockEnd = std::min(row + qsizetype(m_factor) * 4, end);
        for (; row < blockEnd; row += 4) {
            for (size_t channel = 0; channel < 4; ++channel)
                sum[channel] += row[channel];
        }
    }
    ++m_rows;
    if (++m_rowsInBlock == m_factor || m_rows == m_crop.height())
        endBlock();
}

void RowReducer::endBlock()
{
    uchar *to = m_image.scanLine((m_rows - 1) / m_factor);
    int left = 0;
    for (const Sum &sum : m_sums) {
        const auto count = quint32(std::min(m_factor, m_crop.width() - left) * m_rowsInBlock);
        for (const quint32 channel : sum)
            *to++ = uchar((channel + count / 2) / count);
        left += m_factor;
    }
    std::ranges::fill(m_sums, Sum{});
    m_rowsInBlock = 0;
}

QImage reduced(const QImage &image, int factor)
{
    if (factor <= 1)
        return image;
    QImage result(blocks(image.width(), factor), blocks(image.height(), factor), image.format());
    if (result.isNull())
        return result;
    result.setColorSpace(image.colorSpace());
    RowReducer(result, image.rect(), factor).add(image, 0);
    return result;
}

Result<Picture> fitted(const PictureFit &fit, bool hasAlpha, const QColorSpace &space,
                       const std::function<Result<>(RowReducer &)> &read)
{
    const auto finalFormat = hasAlpha ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888;
    // Colours are averaged by their opacity, but converted without it.
    const bool isStraight = hasAlpha && fit.factor == 1;
    QImage image(fit.size(), isStraight ? QImage::Format_RGBA8888 : finalFormat);
    if (image.isNull())
        return fail(pictureNeedsTooMuchMemory());
    RowReducer reducer(image, fit.crop, fit.factor);
    if (const auto done = read(reducer); !done)
        return std::unexpected(done.error());
    convertToSrgb(image, space);
    image.convertTo(finalFormat);
    Picture picture{.image = turned(image, fit.orientation), .fullSize = fit.fullSize, .region = fit.region};
    if (picture.image.isNull())
        return fail(pictureNeedsTooMuchMemory());
    return picture;
}

Result<Picture> fitPicture(QImage stored, Orientation orientation, const QColorSpace &space,
                           const PictureRequest &request)
{
    const PictureFit fit = fitOf(stored.size(), orientation, request);
    return fitted(fit, stored.hasAlphaChannel(), space, [&stored](RowReducer &reducer) {
        reducer.add(stored, 0);
        stored = {};
        return Result<>();
    });
}

} // namespace mosslantern
