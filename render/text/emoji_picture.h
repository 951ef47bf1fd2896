#pragma once

#include <QtCore/QHash>
#include <QtGui/QGlyphRun>

class QPainter;

namespace mosslantern {

/// Draws a run of the colour emoji font, whose glyphs are bitmaps of one size: averaged down where they are
/// shown smaller; where they are shown larger, drawn from outlines of the same design, and interpolated only
/// if there are none. `emoji`: the text that a glyph stands for. Emoji stand on whole pixels, and pictures
/// that were drawn are kept for the next time.
void drawEmojiRun(QPainter &painter, const QGlyphRun &run, const QHash<quint32, QString> &emoji);

} // namespace mosslantern
