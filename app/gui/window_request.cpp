#include "app/gui/window_request.h"

#include <QtCore/QDataStream>

namespace mosslantern {

QDataStream &operator<<(QDataStream &stream, const WindowRequest &request)
{
    return stream << request.pictures << request.destination << request.activationToken;
}

QDataStream &operator>>(QDataStream &stream, WindowRequest &request)
{
    return stream >> request.pictures >> request.destination >> request.activationToken;
}

} // namespace mosslantern
