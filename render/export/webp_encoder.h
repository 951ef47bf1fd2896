#pragma once

#include "render/export/slide_encoder.h"

#include <webp/encode.h>

namespace mosslantern {

/// What libwebp holds of a picture: its pixels, and what it makes of them.
inline constexpr qint64 webpBytesPerPixel = 8;
inline constexpr qint64 losslessWebpBytesPerPixel = 40;

/// Makes WebP files, with the profile of sRGB, of one picture, which is painted once.
class WebpEncoder
{
public:
    /// Throws std::bad_alloc.
    WebpEncoder(QSize size, const RowPainter &paint);
    ~WebpEncoder();
    Q_DISABLE_COPY_MOVE(WebpEncoder)

    /// `quality`: 1 to 100.
    [[nodiscard]] Result<QByteArray> encode(int quality);
    [[nodiscard]] Result<QByteArray> encodeLossless();

private:
    [[nodiscard]] Result<QByteArray> encode(const WebPConfig &config);

    WebPPicture m_picture{};
};

} // namespace mosslantern
