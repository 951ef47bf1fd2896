#pragma once

#include <QtCore/QPointer>
#include <QtGui/QFont>
#include <QtGui/QSyntaxHighlighter>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickTextDocument>

namespace mosslantern {

/// Gives emoji, and letters that the text's font lacks, in a text item's document the fonts that slides draw
/// them in.
class LineHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *textDocument READ textDocument WRITE setTextDocument NOTIFY
                   textDocumentChanged REQUIRED)
    /// The text's, with a size in pixels.
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged REQUIRED)

public:
    explicit LineHighlighter(QObject *parent = nullptr);

    QQuickTextDocument *textDocument() const { return m_textDocument; }
    void setTextDocument(QQuickTextDocument *document);

    QFont font() const { return m_font; }
    void setFont(const QFont &font);

signals:
    void textDocumentChanged();
    void fontChanged();

protected:
    void highlightBlock(const QString &text) override;

private:
    QPointer<QQuickTextDocument> m_textDocument;
    QFont m_font;
};

} // namespace mosslantern
