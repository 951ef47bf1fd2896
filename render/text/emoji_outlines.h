#pragma once

#include "render/text/color_font.h"

namespace mosslantern {

/// An emoji as coloured outlines.
struct EmojiOutlines
{
    const ColorFont *font = nullptr; // stays as long as the thread
    quint32 glyph = 0;
};

/// The outlines of one emoji; none when those that come with the program do not have it. They lie in several
/// files, of which only those that are asked for are read.
[[nodiscard]] std::optional<EmojiOutlines> emojiOutlines(const QString &emoji);

} // namespace mosslantern
