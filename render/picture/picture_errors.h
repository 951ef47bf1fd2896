#pragma once

#include <QtCore/QString>

namespace mosslantern {

// Sentences that more than one decoder has need of.
inline QString damagedPicture()
{
    return QStringLiteral("The picture is damaged.");
}
inline QString incompletePicture()
{
    return QStringLiteral("The picture file is incomplete.");
}
inline QString stoppedDecoding()
{
    return QStringLiteral("The picture was not needed any more.");
}
inline QString pictureNeedsTooMuchMemory()
{
    return QStringLiteral("There is not enough memory for the picture.");
}

} // namespace mosslantern
