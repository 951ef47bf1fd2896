#pragma once

#include <QtGui/QGlyphRun>

class QPainter;

namespace mosslantern {

/// Draws a run of the colour emoji font, whose glyphs are bitmaps of one size: averaged down where they are
/// shown smaller, interpolated where they are shown larger, and never larger in memory than the bitmaps or
/// what shows.
void drawEmojiRun(QPainter &painter, const QGlyphRun &run);

} // namespace mosslantern
