#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickTextDocument>

namespace mosslantern {

/// The text of a text item, exactly: what the item itself tells has spaces for no-break spaces.
class PlainText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit PlainText(QObject *parent = nullptr);

    /// Every line break of it is a line feed.
    Q_INVOKABLE static QString of(QQuickTextDocument *document);

    /// A text as a text item holds it: every line break is a line feed.
    Q_INVOKABLE static QString withLineFeeds(const QString &text);
};

} // namespace mosslantern
