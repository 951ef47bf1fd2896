#pragma once

#include <QtCore/QString>

#include <array>
#include <optional>

namespace mosslantern {

/// How both texts of a slide are drawn.
enum class TextStyle { classic, boxed, modern, neon };

/// Every style, in the order in which lists present them.
inline constexpr std::array allTextStyles{TextStyle::classic, TextStyle::boxed, TextStyle::modern,
                                          TextStyle::neon};

/// The text that stands for a style in files and arguments ("classic").
QString rawText(TextStyle style);

/// The style with exactly this raw text, if there is one.
std::optional<TextStyle> textStyleFromRawText(QStringView rawText);

} // namespace mosslantern
