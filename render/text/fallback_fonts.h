#pragma once

#include "render/text/emoji_runs.h"

#include <QtCore/QString>

class QRawFont;

namespace mosslantern {

/// A run of a text that the text font lacks, and the family that draws it.
struct FallbackRun
{
    TextRun run;
    QString family;
};

/// The runs of `text` that `textFont` cannot draw, each with the first installed family of one
/// fixed chain that has its letters: the family of its script, then those with letters and symbols of many.
/// Marks and joiners stay with the letter before them. What no family of the chain has is in no run.
[[nodiscard]] QList<FallbackRun> fallbackRuns(const QString &text, const QRawFont &textFont);

} // namespace mosslantern
