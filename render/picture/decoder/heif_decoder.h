#pragma once

#include "render/picture/decoder/file_decoder.h"

#include <QtGui/QColorSpace>

#include <libheif/heif.h>

namespace mosslantern {

/// Calls `release`, a function of libheif's, for an object that libheif has made.
template <auto release>
struct HeifRelease
{
    template <typename Object>
    void operator()(Object *object) const
    {
        release(object);
    }
};

template <typename Object, auto release>
using HeifOwned = std::unique_ptr<Object, HeifRelease<release>>;

/// The primary picture of a HEIC or AVIF file, turned, mirrored and cropped as the file says, by libheif;
/// EXIF data in such a file describe nothing more.
class HeifDecoder : public FileDecoder
{
public:
    void load() override;
    Result<QSize> open(QIODevice &device) override;
    qint64 bytesFor(const PictureRequest &request) const override;
    Result<Picture> decode(const PictureRequest &request) override;

private:
    int bytesPerPixel() const;
    QColorSpace colorSpace() const;

    QByteArray m_bytes;
    HeifOwned<heif_context, heif_context_free> m_context;
    HeifOwned<heif_image_handle, heif_image_handle_release> m_handle;
    QSize m_size;
};

} // namespace mosslantern
