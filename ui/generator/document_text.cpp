#include "ui/generator/document_text.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QTextCursor>
#include <QtQuick/QQuickItem>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// What the document holds; unlike its plain text this keeps spaces that do not break.
QString textOf(const QTextDocument &document)
{
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

/// A text as a document can hold it: every line ends in a line feed.
QString asInDocument(QString text)
{
    return text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n').replace(QChar::ParagraphSeparator, u'\n');
}

} // namespace

DocumentText::DocumentText(QObject *parent)
    : QObject(parent)
{}

QTextDocument *DocumentText::document() const
{
    return m_textDocument ? m_textDocument->textDocument() : nullptr;
}

void DocumentText::setTextDocument(QQuickTextDocument *textDocument)
{
    Q_ASSERT(!m_textDocument && textDocument);
    m_textDocument = textDocument;
    // Only the lines that are seen are drawn. The editor sees to that itself when its own text is set, but
    // not when the document grows.
    if (auto *const editor = qobject_cast<QQuickItem *>(textDocument->parent()))
        editor->setFlag(QQuickItem::ItemObservesViewport);
    showText();
    connect(document(), &QTextDocument::contentsChanged, this, &DocumentText::takeText);
    emit textDocumentChanged();
}

void DocumentText::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    showText();
    emit textChanged();
}

void DocumentText::showText()
{
    QTextDocument *const document = this->document();
    if (!document)
        return;
    const QString wanted = asInDocument(m_text);
    const QString shown = textOf(*document);
    if (wanted == shown)
        return;
    const QScopedValueRollback showing(m_isShowing, true);
    const bool isFirst = shown.isEmpty() && !document->isUndoAvailable() && !document->isRedoAvailable();
    document->setUndoRedoEnabled(!isFirst);
    const auto [start, wantedStart] = std::ranges::mismatch(shown, wanted);
    const auto from = start - shown.begin();
    auto shownEnd = shown.end();
    auto wantedEnd = wanted.end();
    while (shownEnd != start && wantedEnd != wantedStart && shownEnd[-1] == wantedEnd[-1]) {
        --shownEnd;
        --wantedEnd;
    }
    QTextCursor cursor(document);
    cursor.setPosition(static_cast<int>(from));
    cursor.setPosition(static_cast<int>(shownEnd - shown.begin()), QTextCursor::KeepAnchor);
    cursor.insertText(wanted.sliced(from, wantedEnd - wantedStart));
    document->setUndoRedoEnabled(true);
    emit replaced(static_cast<int>(from));
}

void DocumentText::takeText()
{
    if (m_isShowing)
        return;
    const QString shown = textOf(*document());
    // The document also reports changes of its looks.
    if (shown == asInDocument(m_text))
        return;
    m_text = shown;
    emit textChanged();
    emit textEdited(m_text);
}

} // namespace mosslantern
