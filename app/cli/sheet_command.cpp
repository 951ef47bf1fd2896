#include "app/cli/commands.h"
#include "app/cli/interruption.h"
#include "app/cli/library.h"
#include "app/cli/option_reader.h"
#include "app/cli/output.h"
#include "model/record_lookup.h"
#include "model/slideshow.h"
#include "render/export/contact_sheet.h"
#include "render/export/slide_file.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int narrowestCell = 40;
constexpr int widestCell = 1080;

std::vector<SheetRow> rowsOf(const QList<Slideshow *> &slideshows, int cell)
{
    const ExportOptions options{.width = cell};
    std::vector<SheetRow> rows;
    for (const Slideshow *slideshow : slideshows) {
        SheetRow &row = rows.emplace_back(u"Slideshow_%1"_s.arg(rows.size() + 1));
        for (const Slide *slide : slideshow->slidesInOrder())
            row.slides.push_back(
                exportJob(*slide, slideshow->aspectRatio().value_or(AspectRatio::tiktok), options));
    }
    return rows;
}

Result<EncodedSlide> draw(const std::vector<SheetRow> &rows, const std::optional<SlideFormat> &format)
{
    WorkCrew crew(QThread::idealThreadCount());
    if (format)
        return encodedContactSheet(rows, {.format = *format}, crew);
    auto document = contactSheetDocument(rows, crew);
    if (!document)
        return std::unexpected(document.error());
    EncodedSlide file;
    file.file = std::move(*document);
    return file;
}

int sheet(const Arguments &arguments)
{
    OptionReader options(arguments);
    const QString batch = options.required("batch"_L1);
    const QString out = options.required("out"_L1);
    const int cell = int(options.integer("cell"_L1, narrowestCell, widestCell).value_or(usualSheetCell));
    if (options.problem())
        return wrongUsage(*options.problem());
    const std::optional<SlideFormat> format = slideFormatOfFile(out);
    if (!format && !out.endsWith(".pdf"_L1, Qt::CaseInsensitive))
        return wrongUsage(
            u"--out: expected a name that ends with .png, .jpg, .webp or .pdf, not “%1”"_s.arg(out));
    const auto store = openLibrary(arguments);
    if (!store)
        return failedWith(store.error());
    const Result<BatchGroup> found = findBatch(**store, batch);
    if (!found)
        return failedWith(found.error());

    const Interruption interruption;
    const Result<EncodedSlide> drawn = draw(rowsOf(found->slideshows, cell), format);
    if (interruption.isRequested())
        return interruption.exitStatus(failed);
    if (!drawn)
        return failedWith({u"“%1” could not be written: %2"_s.arg(out, drawn.error().message)});
    if (const Result<> written = writeSlideFile(out, *drawn); !written)
        return failedWith(written.error());
    writeRow({out});
    return done;
}

} // namespace

std::vector<Command> sheetCommands()
{
    return {{
        .name = "sheet"_L1,
        .usage = "--batch BATCH --out FILE [--cell PIXELS]"_L1,
        .summary = "draw all slides of a batch on one contact sheet"_L1,
        .details =
            "Draws a batch at a glance, for whoever approves its slideshows: one row for each, called as "
            "an export calls its folder. Writes one picture, or a PDF document with six rows on each "
            "page, and prints its name. A file of this name is replaced."_L1,
        .options = {{"batch"_L1, "BATCH"_L1, "the batch: its name, or the id of one run"_L1},
                    {"out"_L1, "FILE"_L1, "the file: .png, .jpg, .webp or .pdf"_L1},
                    {"cell"_L1, "PIXELS"_L1, "width of each slide, 40 to 1080; 180 by default"_L1}},
        .draws = true,
        .run = sheet,
    }};
}

} // namespace mosslantern
