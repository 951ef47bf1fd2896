#include "ui/common/line_highlighter.h"

#include "render/text/line_layout.h"

namespace mosslantern {

LineHighlighter::LineHighlighter(QObject *parent)
    : QSyntaxHighlighter(parent)
{}

void LineHighlighter::setTextDocument(QQuickTextDocument *document)
{
    if (m_textDocument == document)
        return;
    m_textDocument = document;
    setDocument(document ? document->textDocument() : nullptr);
    emit textDocumentChanged();
}

void LineHighlighter::setFont(const QFont &font)
{
    if (m_font == font)
        return;
    m_font = font;
    rehighlight();
    emit fontChanged();
}

void LineHighlighter::highlightBlock(const QString &text)
{
    if (m_font.pixelSize() <= 0)
        return;
    for (const QTextLayout::FormatRange &range : lineFormats(text, m_font))
        setFormat(range.start, range.length, range.format);
}

} // namespace mosslantern
