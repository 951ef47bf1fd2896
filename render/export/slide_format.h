#pragma once

#include "render/corners.h"

#include <QtCore/QString>

#include <array>
#include <optional>

namespace mosslantern {

/// What a slide is written as.
enum class SlideFormat { png, jpeg, webp, losslessWebp };

inline constexpr std::array allSlideFormats{SlideFormat::png, SlideFormat::jpeg, SlideFormat::webp,
                                            SlideFormat::losslessWebp};
inline constexpr std::array allCorners{Corners::rounded, Corners::square};

/// The texts that stand for them in arguments: "png", "jpeg", "webp", "webp-lossless"; "rounded", "square".
QString rawText(SlideFormat format);
QString rawText(Corners corners);
std::optional<SlideFormat> slideFormatFromRawText(QStringView text);
std::optional<Corners> cornersFromRawText(QStringView text);

/// The end of the names of such files: ".png", ".jpg" or ".webp".
QString fileEnding(SlideFormat format);

/// The format of files with this name; none when its end is that of none. Names of WebP files stand for
/// lossy ones.
std::optional<SlideFormat> slideFormatOfFile(const QString &name);

/// How a drawn slide becomes a file.
struct SlideEncoding
{
    static constexpr int usualQuality = 90;

    SlideFormat format = SlideFormat::png;
    int quality = usualQuality; // 1 to 100, of JPEG and lossy WebP
    bool progressive = false;   // of JPEG
    bool isSmall = false;       // of PNG: made more slowly
    /// The file must not be larger: the quality is lowered until it is not.
    std::optional<qint64> mostBytes = {};

    /// Whether bands are compressed on their own.
    [[nodiscard]] bool isByBands() const { return format == SlideFormat::png && !isSmall; }

    friend bool operator==(const SlideEncoding &, const SlideEncoding &) = default;
};

} // namespace mosslantern
