#pragma once

#include <QtCore/QString>

namespace mosslantern {

/// An sRGB colour; each component is a fraction from 0 to 1. Records hold its hexadecimal text instead.
struct RgbaColor
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    friend bool operator==(const RgbaColor &, const RgbaColor &) = default;
};

inline constexpr RgbaColor opaqueBlack{.red = 0, .green = 0, .blue = 0, .opacity = 1};
inline constexpr RgbaColor opaqueWhite{.red = 1, .green = 1, .blue = 1, .opacity = 1};
inline constexpr RgbaColor clearColor{.red = 0, .green = 0, .blue = 0, .opacity = 0};

/// Decodes RRGGBB, or RRGGBBAA when the text has exactly eight characters. White space around the text and
/// every "#" are left out, a "0x" before the digits is read over, and whatever cannot be read counts as 0:
/// any text gives a colour.
RgbaColor colorFromHex(const QString &text);

/// RRGGBB in upper case for an opaque colour, RRGGBBAA for any other. Components are clamped to 0...1 and
/// truncated to 8 bits; a colour with a component that is not a number gives "FFFFFF".
QString hexFromColor(const RgbaColor &color);

} // namespace mosslantern
