#include "app/gui/legal_notices.h"

#include <QtCore/QFile>

namespace mosslantern {

using namespace Qt::StringLiterals;

QString LegalNotices::text() const
{
    QFile file(u":/mosslantern/copyright"_s);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace mosslantern
