#include "render/picture/decoder/file_decoder.h"

#include "render/picture/decoder/heif_decoder.h"
#include "render/picture/decoder/qt_decoder.h"

namespace mosslantern {

std::unique_ptr<FileDecoder> FileDecoder::of(PictureFormat format)
{
    if (format == PictureFormat::Heic || format == PictureFormat::Avif)
        return std::make_unique<HeifDecoder>();
    return std::make_unique<QtDecoder>(format);
}

} // namespace mosslantern
