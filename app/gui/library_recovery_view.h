#pragma once

#include "model/library_recovery.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// What the window offers when the library is damaged: its newest whole copy, or what can be read of it.
class LibraryRecoveryView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    /// The newest whole copy, in words; empty when there is none.
    Q_PROPERTY(QString copy READ copy CONSTANT)
    /// What is in the library's place now; empty before.
    Q_PROPERTY(QString outcome READ outcome NOTIFY changed)
    /// Why the last attempt failed; empty when it did not.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)

public:
    /// Looks for the copy.
    explicit LibraryRecoveryView(const LibraryLocation &location, QObject *parent = nullptr);

    QString copy() const;
    QString outcome() const { return m_outcome; }
    QString problem() const { return m_problem; }

    /// Puts the copy in the place of the library.
    Q_INVOKABLE void useCopy();
    /// Puts what can be read in the place of the library.
    Q_INVOKABLE void rescue();

signals:
    void changed();
    /// The library is to be opened again.
    void openRequested();

private:
    /// `lostCount` says in words how many records are lost, with the number as %1.
    void finish(const Result<Recovery> &recovery, const QString &lostCount);

    LibraryLocation m_location;
    std::optional<LibraryCopy> m_copy;
    QString m_outcome;
    QString m_problem;
};

} // namespace mosslantern
