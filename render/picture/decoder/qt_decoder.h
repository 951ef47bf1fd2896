#pragma once

#include "render/picture/decoder/file_decoder.h"
#include "render/picture/picture_orientation.h"

#include <QtGui/QImageReader>

namespace mosslantern {

/// Pictures of the formats that Qt reads: WebP, GIF, BMP and TIFF.
class QtDecoder : public FileDecoder
{
public:
    explicit QtDecoder(PictureFormat format);

    void load() override;
    Result<QSize> open(QIODevice &device) override;
    qint64 bytesFor(const PictureRequest &request) const override;
    Result<Picture> decode(const PictureRequest &request) override;

private:
    int bytesPerPixel() const;

    const PictureFormat m_format;
    QImageReader m_reader;
    QIODevice *m_device = nullptr;
    Orientation m_orientation;
    QSize m_size; // as it is stored
};

} // namespace mosslantern
