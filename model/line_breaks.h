#pragma once

#include <QtCore/QStringList>

namespace mosslantern {

/// Whether a text breaks at this UTF-16 code unit: U+000A to U+000D, U+0085, U+2028 and U+2029.
constexpr bool isLineBreak(char16_t unit)
{
    return (unit >= 0x000A && unit <= 0x000D) || unit == 0x0085 || unit == 0x2028 || unit == 0x2029;
}

/// The pieces between line breaks, at least one. Every character breaks on its own: a carriage return and a
/// line feed leave an empty line between them.
inline QStringList splitLines(QStringView text)
{
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isLineBreak(text[i].unicode())) {
            lines.append(text.sliced(start, i - start).toString());
            start = i + 1;
        }
    }
    lines.append(text.sliced(start).toString());
    return lines;
}

} // namespace mosslantern
