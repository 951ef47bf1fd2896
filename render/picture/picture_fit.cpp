#include "render/picture/picture_fit.h"

#include "render/picture/picture_color.h"
#include "render/picture/picture_errors.h"

#include <algorithm>
#include <array>

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

QImage reduced(const QImage &image, int factor)
{
    if (factor <= 1)
        return image;
    QImage result(blocks(image.width(), factor), blocks(image.height(), factor), image.format());
    if (result.isNull())
        return result;
    result.setColorSpace(image.colorSpace());
    using Sum = std::array<quint32, 4>;
    std::vector<Sum> sums(size_t(result.width()));
    for (int row = 0; row < result.height(); ++row) {
        std::ranges::fill(sums, Sum{});
        const int top = row * factor;
        const int bottom = std::min(top + factor, image.height());
        for (int y = top; y < bottom; ++y) {
            const uchar *from = image.constScanLine(y);
            const uchar *end = from + qsizetype(image.width()) * 4;
            for (Sum &sum : sums) {
                const uchar *blockEnd = std::min(from + qsizetype(factor) * 4, end);
                for (; from < blockEnd; from += 4) {
                    for (size_t channel = 0; channel < 4; ++channel)
                        sum[channel] += from[channel];
                }
            }
        }
        uchar *to = result.scanLine(row);
        int left = 0;
        for (const Sum &sum : sums) {
            const auto count = quint32(std::min(factor, image.width() - left) * (bottom - top));
            for (const quint32 channel : sum)
                *to++ = uchar((channel + count / 2) / count);
            left += factor;
        }
    }
    return result;
}

Result<Picture> fitPicture(QImage stored, Orientation orientation, const QColorSpace &space,
                           const PictureRequest &request)
{
    Picture picture;
    picture.fullSize = turned(stored.size(), orientation);
    const int factor = reductionFactor(neededScale(picture.fullSize, request));
    const QRectF wanted =
        turned(neededRegion(picture.fullSize, request), picture.fullSize, orientation.inverse());
    const QSize storedSize = stored.size();
    const QRect shown = pixelsShowing(
        wanted, 1.0 / factor, {blocks(storedSize.width(), factor), blocks(storedSize.height(), factor)});
    picture.region = turned(QRectF(shown.topLeft() * factor, shown.size() * factor), storedSize, orientation);

    const QRect crop = QRect(shown.topLeft() * factor, shown.size() * factor).intersected(stored.rect());
    QImage image;
    if (crop == stored.rect()) {
        image = std::move(stored);
    } else if (factor > 1 && stored.depth() == 32) { // what is reduced need not be copied before
        image = QImage(stored.constScanLine(crop.top()) + qsizetype(crop.left()) * 4, crop.width(),
                       crop.height(), stored.bytesPerLine(), stored.format());
    } else {
        image = stored.copy(crop);
        stored = {};
    }
    convertToSrgb(image, space);
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_RGBA8888_Premultiplied
                                            : QImage::Format_RGBX8888);
    picture.image = turned(reduced(image, factor), orientation);
    if (picture.image.isNull())
        return fail(pictureNeedsTooMuchMemory());
    return picture;
}

} // namespace mosslantern
