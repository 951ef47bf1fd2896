#include "ui/common/plain_text.h"

#include "model/line_breaks.h"

#include <QtGui/QTextDocument>

namespace mosslantern {

PlainText::PlainText(QObject *parent)
    : QObject(parent)
{}

QString PlainText::of(QQuickTextDocument *document)
{
    return document ? withLineFeeds(document->textDocument()->toRawText()) : QString();
}

QString PlainText::withLineFeeds(const QString &text)
{
    QString lines = text;
    for (QChar &character : lines) {
        if (isLineBreak(character.unicode()))
            character = u'\n';
    }
    return lines;
}

} // namespace mosslantern
