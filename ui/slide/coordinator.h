#pragma once

#include "ui/slide/caret_line.h"

#include <QtCore/QPointer>
#include <QtCore/QRectF>
#include <QtGui/QFont>
#include <QtGui/QTextDocument>
#include <QtQuick/QQuickTextDocument>

namespace mosslantern {

class LineHighlighter;

/// Keeps the document of a text editor laid out like the lines of a text block: ten times their size, every
/// line as high as the block's, emoji and other scripts in their fonts, whatever is typed or pasted.
class Coordinator : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *textDocument READ textDocument WRITE setTextDocument NOTIFY
                   textDocumentChanged REQUIRED)
    /// As large as the document is laid out.
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged REQUIRED)
    /// Between lines, in points.
    Q_PROPERTY(double lineSpacing READ lineSpacing WRITE setLineSpacing NOTIFY fontChanged REQUIRED)
    /// Off: the text item keeps its layout, but draws nothing and makes no glyphs to draw.
    Q_PROPERTY(bool drawsText READ drawsText WRITE setDrawsText NOTIFY drawsTextChanged REQUIRED)
    Q_PROPERTY(double factor READ factor CONSTANT)
    /// Half a blink of the caret in milliseconds; 0: it does not blink.
    Q_PROPERTY(int blinkInterval READ blinkInterval CONSTANT)
    Q_PROPERTY(double tabStopDistance READ tabStopDistance NOTIFY fontChanged)
    Q_PROPERTY(double baselineShift READ baselineShift NOTIFY fontChanged)
    /// The position whose caret stands at the letter that follows it in the text, and not at the one before;
    /// -1: none. It makes a difference where the direction changes.
    Q_PROPERTY(int heldPosition READ heldPosition NOTIFY heldPositionChanged)

public:
    explicit Coordinator(QObject *parent = nullptr);

    QQuickTextDocument *textDocument() const { return m_textDocument; }
    void setTextDocument(QQuickTextDocument *document);

    QFont font() const { return m_font; }
    void setFont(const QFont &font);

    double lineSpacing() const { return m_lineSpacing; }
    void setLineSpacing(double spacing);

    bool drawsText() const { return m_drawsText; }
    void setDrawsText(bool drawsText);

    /// Units of the document to a point.
    static double factor();

    static int blinkInterval();

    /// In units of the document.
    double tabStopDistance() const;

    /// How much lower, in points, letters stand on a text block than in the document.
    double baselineShift() const;

    int heldPosition() const { return m_heldPosition; }

    /// How far, in units of the document, the caret at `position` stands to the right of where the text item
    /// has it, when `heldPosition` is held.
    Q_INVOKABLE double caretAside(int position, int heldPosition) const;

    /// Where a caret goes from `position` to the right or left, over the letter drawn there or into the next
    /// line; -1: in this line the text item knows. Holds the place.
    Q_INVOKABLE int moveBeside(int position, bool toRight);

    /// Where a caret goes that the text item puts at `position` for a click `aside` to the right of that
    /// place, in units of the document. Holds the place.
    Q_INVOKABLE int moveNear(int position, double aside);

    /// The caret has moved in another way.
    Q_INVOKABLE void releaseCaret() { hold(-1); }

    /// The rectangles of what is selected from `start` to `end`, in points: to the right of where the text
    /// item has the caret at `start`, and below the top of the first line.
    Q_INVOKABLE QList<QRectF> selection(int start, int end) const;

    /// The text of the document, line feeds between its lines.
    Q_INVOKABLE QString text() const;

    /// Replaces the whole text; nothing of that can be undone.
    Q_INVOKABLE void replaceText(const QString &text);

    /// Take back what was typed last, and put it back.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

    /// The height in points that an editor needs whose text is `laidOut` points high.
    Q_INVOKABLE static double neededHeight(double laidOut);

    /// Where the line of the character at `position` lies below the first line's top, and how high it is with
    /// the space to the next, both in points; no width.
    Q_INVOKABLE QRectF line(int position) const;

    /// The bar that stands for a caret whose place in the text is `place` (points).
    Q_INVOKABLE QRectF caretBar(const QRectF &place) const;

    /// The start of the emoji that ends at `position`, and the end of the one that starts there; `position`
    /// itself where there is none.
    Q_INVOKABLE int startOfEmojiBefore(int position) const;
    Q_INVOKABLE int endOfEmojiAfter(int position) const;

    /// Where a caret belongs that came from `from` to `to`: never inside an emoji.
    Q_INVOKABLE int caretPosition(int from, int to) const;

signals:
    void textDocumentChanged();
    void fontChanged();
    void drawsTextChanged();
    void heldPositionChanged();

private:
    /// The laid out line of a position, and where its text begins in the document.
    struct Line
    {
        QString text;
        int start = 0; // of the text in the document
        QTextLayout *layout = nullptr;
        QTextLine line;
        /// Laid out, and nothing is being composed in it: that stands in the layout, but not in the text.
        [[nodiscard]] bool isWhole() const { return line.isValid() && layout->preeditAreaText().isEmpty(); }
        [[nodiscard]] CaretLine carets() const { return {text, *layout, line}; }
        /// From the text's left edge.
        [[nodiscard]] double x(double inLayout) const { return layout->position().x() + inLayout; }
    };
    Line lineOf(int position) const;
    void hold(int position);
    QTextDocument *document() const;
    double plainLineHeight() const;
    void showOrHideText();
    QTextBlockFormat formatOf(const QTextBlock &block) const;
    bool isFormatted() const;
    void travel(const char *step, bool (QTextDocument::*isPossible)() const);
    void formatBlocks(int from, int to, bool joinsTyping);
    void formatAll();

    QPointer<QQuickTextDocument> m_textDocument;
    LineHighlighter *m_highlighter = nullptr;
    QFont m_font;
    double m_lineSpacing = 0;
    bool m_drawsText = true;
    bool m_isFormatting = false;
    int m_heldPosition = -1;
};

} // namespace mosslantern
