#include "ui/editor/emoji_highlighter.h"

#include "render/text/line_layout.h"

namespace mosslantern {

void EmojiHighlighter::setFontSize(double size)
{
    if (m_fontSize == size)
        return;
    m_fontSize = size;
    rehighlight();
}

void EmojiHighlighter::highlightBlock(const QString &text)
{
    if (m_fontSize <= 0)
        return;
    for (const QTextLayout::FormatRange &range : emojiFormats(text, m_fontSize))
        setFormat(range.start, range.length, range.format);
}

} // namespace mosslantern
