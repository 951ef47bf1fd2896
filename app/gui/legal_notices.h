#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// Who holds which rights in the program and in what is embedded in it.
class LegalNotices : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The same text as the copyright file of the packages.
    Q_PROPERTY(QString text READ text CONSTANT)

public:
    explicit LegalNotices(QObject *parent = nullptr)
        : QObject(parent)
    {}

    QString text() const;
};

} // namespace mosslantern
