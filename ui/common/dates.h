#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// Dates and times as people read them, in the language of the user.
class Dates : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit Dates(QObject *parent = nullptr)
        : QObject(parent)
    {}

    /// The local date alone ("June 3, 2026").
    Q_INVOKABLE QString day(const QDateTime &time) const;

    /// How far two times are apart, in the largest unit of which there is one at least ("5 minutes").
    Q_INVOKABLE QString distance(const QDateTime &from, const QDateTime &to) const;
};

} // namespace mosslantern
