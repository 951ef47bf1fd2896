#include "render/export/small_png.h"

#include "render/export/png_encoder.h"
#include "render/export/png_filter.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"

#include <QtCore/QBuffer>

#include <libdeflate.h>

#include <memory>
#include <new>

namespace mosslantern {

namespace {

constexpr int bandRows = 64;
constexpr int level = 3; // of 12: the next ones cost far more than they save

bool isOpaque(const QImage &image)
{
    const auto *pixels = reinterpret_cast<const uint32_t *>(image.constBits());
    const qsizetype count = image.sizeInBytes() / 4;
    return std::all_of(pixels, pixels + count, [](uint32_t pixel) { return pixel >> 24 == 255; });
}

/// Takes the opacity out of pixels, where they are. Gives the bytes of a row.
int dropOpacity(QImage &image)
{
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        uint8_t *row = image.scanLine(y);
        for (int x = 0; x < width; ++x)
            std::copy_n(row + 4 * x, 3, row + 3 * x);
    }
    return 3 * width;
}

std::vector<uint8_t> filtered(const QImage &image, int rowBytes, int pixelBytes)
{
    std::vector<uint8_t> out(size_t(image.height()) * (size_t(rowBytes) + 1));
    const std::vector<uint8_t> zeros(static_cast<size_t>(rowBytes));
    for (int y = 0; y < image.height(); ++y)
        bestFilter(image.constScanLine(y), y > 0 ? image.constScanLine(y - 1) : zeros.data(), rowBytes,
                   pixelBytes, out.data() + size_t(y) * (size_t(rowBytes) + 1));
    return out;
}

} // namespace

Result<QByteArray> encodeSmallPng(QSize size, const RowPainter &paint)
{
    QImage image = newImage(size, QImage::Format_RGBA8888);
    for (int first = 0; first < size.height(); first += bandRows) {
        const int count = std::min(bandRows, size.height() - first);
        paint(first, count, image.scanLine(first));
        unpremultiply(image.scanLine(first), size.width() * count);
    }
    const bool opaque = isOpaque(image);
    const int rowBytes = opaque ? dropOpacity(image) : 4 * size.width();
    const std::vector<uint8_t> bytes = filtered(image, rowBytes, opaque ? 3 : 4);
    image = {};

    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), &libdeflate_free_compressor);
    if (!compressor)
        throw std::bad_alloc();
    PngBand band;
    band.rawSize = qsizetype(bytes.size());
    band.adler32 = libdeflate_adler32(1, bytes.data(), bytes.size());
    band.deflated.resize(qsizetype(libdeflate_deflate_compress_bound(compressor.get(), bytes.size())));
    band.deflated.resize(qsizetype(libdeflate_deflate_compress(
        compressor.get(), bytes.data(), bytes.size(), band.deflated.data(), size_t(band.deflated.size()))));
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (const Result<> written = writePng(file, size, {band}, opaque); !written)
        return std::unexpected(written.error());
    return file.data();
}

} // namespace mosslantern
