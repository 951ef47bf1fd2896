#include "app/identity.h"

#include <QtCore/QCoreApplication>

namespace mosslantern {

using namespace Qt::StringLiterals;

void setApplicationIdentity()
{
    QCoreApplication::setApplicationName(u"Mosslantern"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(MOSSLANTERN_VERSION));
}

} // namespace mosslantern
