#pragma once

#include <QtCore/QString>

#include <array>
#include <optional>

namespace mosslantern {

/// The shape of a slideshow's canvas.
enum class AspectRatio { tiktok, instagram, square };

/// Every shape, in the order in which lists present them.
inline constexpr std::array allAspectRatios{AspectRatio::tiktok, AspectRatio::instagram, AspectRatio::square};

/// The text that stands for a shape in files and arguments ("9:16").
QString rawText(AspectRatio ratio);

/// The shape with exactly this raw text, if there is one.
std::optional<AspectRatio> aspectRatioFromRawText(QStringView rawText);

/// The name for people ("TikTok (9:16)").
QString displayName(AspectRatio ratio);

/// Canvas width divided by canvas height.
double widthToHeight(AspectRatio ratio);

} // namespace mosslantern
