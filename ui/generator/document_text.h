#pragma once

#include <QtCore/QPointer>
#include <QtGui/QTextDocument>
#include <QtQuick/QQuickTextDocument>

namespace mosslantern {

/// Keeps the document of a text editor and a text that others change as well in step. Of a change from
/// outside only what differs is replaced, as one step that can be undone.
class DocumentText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *textDocument READ textDocument WRITE setTextDocument NOTIFY
                   textDocumentChanged REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged REQUIRED)

public:
    explicit DocumentText(QObject *parent = nullptr);

    QQuickTextDocument *textDocument() const { return m_textDocument; }
    /// Once.
    void setTextDocument(QQuickTextDocument *document);

    QString text() const { return m_text; }
    void setText(const QString &text);

signals:
    void textDocumentChanged();
    void textChanged();

    /// The user has changed the text.
    void textEdited(const QString &text);

    /// The document shows a text from outside that differs from `start` on.
    void replaced(int start);

private:
    QTextDocument *document() const;
    void showText();
    void takeText();

    QPointer<QQuickTextDocument> m_textDocument;
    QString m_text;
    bool m_isShowing = false;
};

} // namespace mosslantern
