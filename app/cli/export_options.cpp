#include "app/cli/export_options.h"

#include "app/cli/film_options.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

std::vector<OptionSpec> exportOptions()
{
    return {
        {"for"_L1, "PLATFORM"_L1,
         "what this platform takes: tiktok, instagram, reels, stories, shorts, threads, facebook, linkedin "
         "or pinterest; "
         "the options "
         "below win over it"_L1},
        {"fit"_L1,
         {},
         "with --for: put slides of other shapes on a blurred ground instead of leaving them out"_L1},
        {"format"_L1, "FORMAT"_L1, "png (the default without --for), jpeg, webp or webp-lossless"_L1},
        {"width"_L1, "PIXELS"_L1, "width of the pictures, 1 to 8192; by default 2 pixels per point"_L1},
        {"corners"_L1, "CORNERS"_L1, "rounded (the default of PNG) or square (that of the others)"_L1},
        {"quality"_L1, "N"_L1, "of JPEG and WebP, 1 to 100; 90 by default"_L1},
        {"progressive"_L1,
         {},
         "write JPEG files that show coarsely at first; smaller, and slower to write"_L1},
        {"small"_L1, {}, "make PNG files smaller, which takes longer"_L1},
        {"max-bytes"_L1, "BYTES"_L1,
         "no file larger than this, such as 500K or 8M; the quality is lowered to keep to it"_L1},
    };
}

ExportOptions readExportOptions(OptionReader &options)
{
    ExportOptions read;
    if (const Platform *platform = options.platform("for"_L1))
        read = ExportOptions::forPlatform(*platform);
    read.fits = options.has("fit"_L1);
    SlideEncoding &encoding = read.encoding;
    encoding.format = options.slideFormat("format"_L1).value_or(encoding.format);
    encoding.quality = int(options.integer("quality"_L1, 1, 100).value_or(encoding.quality));
    encoding.isSmall = options.has("small"_L1);
    encoding.progressive = options.has("progressive"_L1);
    if (const auto mostBytes = options.bytes("max-bytes"_L1))
        encoding.mostBytes = mostBytes;
    if (const auto width = options.integer("width"_L1, 1, ExportOptions::widest))
        read.width = int(*width);
    if (const auto corners = options.corners("corners"_L1))
        read.corners = corners;
    return read;
}

std::vector<OptionSpec> exportTargetOptions()
{
    std::vector<OptionSpec> options = exportOptions();
    options.push_back({"zip"_L1, {}, "write one ZIP file, called like the folder, instead of the folder"_L1});
    options.push_back({"pdf"_L1,
                       {},
                       "write each slideshow as a PDF document, a JPEG picture on each page; --for linkedin "
                       "does, too"_L1});
    options.push_back(
        {"index"_L1, {}, "write index.csv, a table of what was exported, into the batch's folder"_L1});
    std::ranges::copy(filmOptions(), std::back_inserter(options));
    return options;
}

ExportTarget readExportTarget(OptionReader &options)
{
    ExportTarget target{.options = readExportOptions(options), .isArchive = options.has("zip"_L1)};
    target.hasIndex = options.has("index"_L1);
    const Platform *platform = target.options.platform;
    target.isDocument = options.has("pdf"_L1) || (platform && platform->isDocument);
    target.options.film = readFilmOptions(options, target.options.film);
    if (target.options.film && (target.isArchive || target.isDocument))
        options.note(u"expected one of --film, --zip and --pdf"_s);
    if (target.isDocument && !options.has("format"_L1))
        target.options.encoding.format = SlideFormat::jpeg;
    if (target.isDocument && target.options.encoding.format != SlideFormat::jpeg)
        options.note(u"expected --format jpeg for a PDF document"_s);
    return target;
}

} // namespace mosslantern
