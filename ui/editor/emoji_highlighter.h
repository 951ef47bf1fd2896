#pragma once

#include <QtGui/QSyntaxHighlighter>

namespace mosslantern {

/// Gives the emoji of a document the font that the painter draws them in.
class EmojiHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

    /// Of the text, in points.
    void setFontSize(double size);

protected:
    void highlightBlock(const QString &text) override;

private:
    double m_fontSize = 0;
};

} // namespace mosslantern
