#include "render/export/contact_sheet.h"

#include "render/background.h"
#include "render/export/pdf_documents.h"
#include "render/export/slide_encoder.h"
#include "render/pixels/new_image.h"
#include "render/pixels/pixels.h"
#include "render/text/fonts.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <new>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 24;
constexpr int gap = 12;
constexpr int nameHeight = 30;
constexpr double nameSize = 15;
constexpr qint64 mostPixels = 40'000'000;
constexpr int rowsOfPage = 6;
constexpr int bandRows = 64;

int heightOf(const SheetRow &row)
{
    int height = 0;
    for (const SlideJob &slide : row.slides)
        height = std::max(height, slide.pixelSize().height());
    return nameHeight + height + gap;
}

void drawName(QImage &sheet, const QString &name, int top)
{
    QPainter painter(&sheet);
    painter.setPen(Qt::black);
    painter.setFont(layoutFont(TextStyle::boxed, nameSize));
    painter.translate(margin, top);
    painter.scale(1 / layoutFactor, 1 / layoutFactor);
    const QRectF place(0, 0, (sheet.width() - 2 * margin) * layoutFactor, nameHeight * layoutFactor);
    painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine, name);
}

/// Starts to draw a slide into `out`, whose rows are `stride` bytes apart.
void startCell(const SlideJob &job, uint8_t *out, ptrdiff_t stride, WorkCrew &crew,
               std::atomic<bool> &isShortOfMemory)
{
    const auto draw = [&job, out, stride, &isShortOfMemory, texts = drawTexts(job.values, job.canvas)] {
        try {
            const SlideComposition slide(job.canvas, loadBackground(job.picturePath, job.canvas), texts,
                                         job.corners);
            const QImage image = slide.image();
            for (int y = 0; y < image.height(); ++y)
                blendOver(out + stride * y, image.constScanLine(y), image.width());
        } catch (const std::bad_alloc &) {
            isShortOfMemory = true;
        }
    };
    crew.start(draw, WorkCrew::Order::later);
}

Error tooManyPixels()
{
    return {u"the contact sheet is too large for one picture; a PDF document can hold it."_s};
}

Error noMemory()
{
    return {u"there is not enough memory for the contact sheet."_s};
}

Result<EncodedSlide> encoded(const QImage &sheet, const SlideEncoding &encoding)
{
    EncodedSlide picture;
    picture.size = sheet.size();
    if (encoding.format != SlideFormat::png) {
        const auto copy = [&](int first, int count, uint8_t *out) {
            std::copy_n(sheet.constScanLine(first), sheet.bytesPerLine() * count, out);
        };
        auto file = encodeSlide(sheet.size(), copy, encoding);
        if (!file)
            return std::unexpected(file.error());
        picture.file = std::move(*file);
        return picture;
    }
    for (int first = 0; first < sheet.height(); first += bandRows) {
        const int count = std::min(bandRows, sheet.height() - first);
        picture.bands.append(encodePngBand(sheet.constScanLine(first),
                                           first > 0 ? sheet.constScanLine(first - 1) : nullptr,
                                           sheet.width(), count, first + count == sheet.height()));
    }
    return picture;
}

} // namespace

QSize contactSheetSize(std::span<const SheetRow> rows)
{
    int width = 0;
    int height = 2 * margin - gap;
    for (const SheetRow &row : rows) {
        int across = 2 * margin - gap;
        for (const SlideJob &slide : row.slides)
            across += slide.pixelSize().width() + gap;
        width = std::max(width, across);
        height += heightOf(row);
    }
    return {width, height};
}

QImage contactSheet(std::span<const SheetRow> rows, WorkCrew &crew)
{
    QImage sheet = newImage(contactSheetSize(rows), QImage::Format_RGBX8888);
    sheet.fill(Qt::white);
    int top = margin;
    for (const SheetRow &row : rows) {
        drawName(sheet, row.name, top);
        top += heightOf(row);
    }
    uint8_t *const pixels = sheet.bits();
    std::atomic<bool> isShortOfMemory = false;
    top = margin;
    for (const SheetRow &row : rows) {
        int left = margin;
        for (const SlideJob &slide : row.slides) {
            startCell(slide, pixels + sheet.bytesPerLine() * (top + nameHeight) + ptrdiff_t(4) * left,
                      sheet.bytesPerLine(), crew, isShortOfMemory);
            left += slide.pixelSize().width() + gap;
        }
        top += heightOf(row);
    }
    crew.waitForAll();
    if (isShortOfMemory)
        throw std::bad_alloc();
    return sheet;
}

Result<EncodedSlide> encodedContactSheet(std::span<const SheetRow> rows, const SlideEncoding &encoding,
                                         WorkCrew &crew)
{
    const QSize size = contactSheetSize(rows);
    if (qint64(size.width()) * size.height() > mostPixels)
        return std::unexpected(tooManyPixels());
    try {
        return encoded(contactSheet(rows, crew), encoding);
    } catch (const std::bad_alloc &) {
        return std::unexpected(noMemory());
    }
}

Result<QByteArray> contactSheetDocument(std::span<const SheetRow> rows, WorkCrew &crew)
{
    std::vector<EncodedSlide> pages;
    for (size_t first = 0; first < rows.size(); first += rowsOfPage) {
        const size_t count = std::min<size_t>(rowsOfPage, rows.size() - first);
        auto page = encodedContactSheet(rows.subspan(first, count), {.format = SlideFormat::jpeg}, crew);
        if (!page)
            return std::unexpected(page.error());
        pages.push_back(std::move(*page));
    }
    return pdfDocument(pages);
}

} // namespace mosslantern
