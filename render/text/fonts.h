#pragma once

#include "model/error.h"
#include "model/text_style.h"

#include <QtGui/QFont>

namespace mosslantern {

/// Fonts are laid out at ten times their size: Qt rounds fractional pixel sizes, so 28.8 becomes 288.
inline constexpr double layoutFactor = 10;

/// Makes one embedded font file known to this process. Fails when it cannot be used.
[[nodiscard]] Result<> registerFont(const QString &fileName);

/// Makes the embedded text fonts known to this process. Needs a QGuiApplication; call it once, before the
/// first text is laid out. Fails when a font cannot be used or "Noto Color Emoji" is not installed.
[[nodiscard]] Result<> registerFonts();

/// The face of a text style, unhinted, `size` points high times layoutFactor (as its pixel size).
[[nodiscard]] QFont layoutFont(TextStyle style, double size);

/// The same as `layoutFont`, but in another family and in no other: in its weight that comes nearest.
[[nodiscard]] QFont fallbackLayoutFont(const QFont &layoutFont, const QString &family);

/// The colour emoji font for text of `size` points, times layoutFactor: drawn so large that an emoji is
/// 1.245 em wide, as browsers show it (Qt alone gives 1.06 em).
[[nodiscard]] QFont emojiLayoutFont(double size);

} // namespace mosslantern
