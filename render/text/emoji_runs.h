#pragma once

#include <QtCore/QList>
#include <QtCore/QStringView>

namespace mosslantern {

/// A run of UTF-16 code units of a text.
struct TextRun
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const TextRun &, const TextRun &) = default;
};

/// The emoji sequences of `text` that are to be shown as colour pictures, in order, one run each: the
/// grammar of Unicode Technical Standard 51 (1.4.9, emoji presentation, modifiers, keycaps, flags, tags and
/// joined sequences). Characters of text presentation (✓, ❤ without U+FE0F, digits) are in no run.
[[nodiscard]] QList<TextRun> emojiRuns(QStringView text);

} // namespace mosslantern
