#include "app/cli/left_out.h"

#include "app/cli/output.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

void LeftOut::note(qsizetype count, qsizetype total, const QString &what)
{
    if (count > 0)
        m_parts.append(u"%1 of %2 %3"_s.arg(count).arg(total).arg(what));
}

int LeftOut::report() const
{
    return m_parts.isEmpty() ? done : failedWith({m_parts.join(u", "_s)});
}

} // namespace mosslantern
