#include "ui/common/emoji_highlighter.h"

#include "render/text/fonts.h"
#include "render/text/line_layout.h"

namespace mosslantern {

EmojiHighlighter::EmojiHighlighter(QObject *parent)
    : QSyntaxHighlighter(parent)
{}

void EmojiHighlighter::setTextDocument(QQuickTextDocument *document)
{
    if (m_textDocument == document)
        return;
    m_textDocument = document;
    setDocument(document ? document->textDocument() : nullptr);
    emit textDocumentChanged();
}

void EmojiHighlighter::setPixelSize(int size)
{
    if (m_pixelSize == size)
        return;
    m_pixelSize = size;
    rehighlight();
    emit pixelSizeChanged();
}

void EmojiHighlighter::highlightBlock(const QString &text)
{
    if (m_pixelSize <= 0)
        return;
    for (const QTextLayout::FormatRange &range : emojiFormats(text, m_pixelSize / layoutFactor))
        setFormat(range.start, range.length, range.format);
}

} // namespace mosslantern
