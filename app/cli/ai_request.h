#pragma once

#include "model/error.h"

#include <QtCore/QStringList>

namespace mosslantern {

class Interruption;

/// Asks the AI service for `count` variations of the slide content `content`, with the key of the preferences
/// or, when that is empty, of the variable OPENAI_API_KEY, and waits for them. Gives up, with an error that
/// is not worth reporting, when there is an interruption.
Result<QStringList> askForVariations(const QString &prompt, const QString &content, qint64 count,
                                     const Interruption &interruption);

} // namespace mosslantern
