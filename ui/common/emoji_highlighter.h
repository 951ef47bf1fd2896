#pragma once

#include <QtCore/QPointer>
#include <QtGui/QSyntaxHighlighter>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickTextDocument>

namespace mosslantern {

/// Gives the emoji of a text item's document the font that slides draw them in.
class EmojiHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *textDocument READ textDocument WRITE setTextDocument NOTIFY
                   textDocumentChanged REQUIRED)
    /// Of the text's font.
    Q_PROPERTY(int pixelSize READ pixelSize WRITE setPixelSize NOTIFY pixelSizeChanged REQUIRED)

public:
    explicit EmojiHighlighter(QObject *parent = nullptr);

    QQuickTextDocument *textDocument() const { return m_textDocument; }
    void setTextDocument(QQuickTextDocument *document);

    int pixelSize() const { return m_pixelSize; }
    void setPixelSize(int size);

signals:
    void textDocumentChanged();
    void pixelSizeChanged();

protected:
    void highlightBlock(const QString &text) override;

private:
    QPointer<QQuickTextDocument> m_textDocument;
    int m_pixelSize = 0;
};

} // namespace mosslantern
