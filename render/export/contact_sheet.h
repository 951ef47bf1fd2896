#pragma once

#include "render/export/slide_renderer.h"

namespace mosslantern {

/// A slideshow on a contact sheet.
struct SheetRow
{
    QString name;
    std::vector<SlideJob> slides;
};

/// How wide slides are on a contact sheet, in pixels.
inline constexpr int usualSheetCell = 180;

/// The size of the sheet of these rows.
[[nodiscard]] QSize contactSheetSize(std::span<const SheetRow> rows);

/// A picture of many slideshows at a glance, on white: one row each, its name above its slides in their
/// order. Format_RGBX8888. Call it on the thread that may touch fonts. Throws std::bad_alloc.
[[nodiscard]] QImage contactSheet(std::span<const SheetRow> rows, WorkCrew &crew);

/// The files of it: one picture in this format. Fails when it would be larger than 40 megapixels.
[[nodiscard]] Result<EncodedSlide> encodedContactSheet(std::span<const SheetRow> rows,
                                                       const SlideEncoding &encoding, WorkCrew &crew);

/// The same as a PDF document with a few rows on each page.
[[nodiscard]] Result<QByteArray> contactSheetDocument(std::span<const SheetRow> rows, WorkCrew &crew);

} // namespace mosslantern
