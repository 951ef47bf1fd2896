#pragma once

#include <QtCore/QStringList>

namespace mosslantern {

/// What a command could not do, counted for the last line on standard error.
class LeftOut
{
public:
    /// "2 of 5 " and `what`, unless `count` is 0.
    void note(qsizetype count, qsizetype total, const QString &what);

    /// Writes the line, if there is anything to tell, and gives the exit status.
    int report() const;

private:
    QStringList m_parts;
};

} // namespace mosslantern
