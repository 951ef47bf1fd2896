#include "app/cli/export_options.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

std::vector<OptionSpec> exportOptions()
{
    return {
        {"format"_L1, "FORMAT"_L1, "png (the default), jpeg, webp or webp-lossless"_L1},
        {"width"_L1, "PIXELS"_L1, "width of the pictures, 1 to 8192; by default 2 pixels per point"_L1},
        {"corners"_L1, "CORNERS"_L1, "rounded (the default of PNG) or square (that of the others)"_L1},
        {"quality"_L1, "N"_L1, "of JPEG and WebP, 1 to 100; 90 by default"_L1},
        {"progressive"_L1,
         {},
         "write JPEG files that show coarsely at first; smaller, and slower to write"_L1},
        {"max-bytes"_L1, "BYTES"_L1,
         "no file larger than this, such as 500K or 8M; the quality is lowered to keep to it"_L1},
    };
}

ExportOptions readExportOptions(OptionReader &options)
{
    ExportOptions read;
    SlideEncoding &encoding = read.encoding;
    encoding.format = options.slideFormat("format"_L1).value_or(encoding.format);
    encoding.quality = int(options.integer("quality"_L1, 1, 100).value_or(encoding.quality));
    encoding.progressive = options.has("progressive"_L1);
    encoding.mostBytes = options.bytes("max-bytes"_L1);
    if (const auto width = options.integer("width"_L1, 1, ExportOptions::widest))
        read.width = int(*width);
    read.corners = options.corners("corners"_L1);
    return read;
}

} // namespace mosslantern
