#pragma once

#include <QtCore/QString>

namespace mosslantern {

/// `text` as people see it: each run of white space as one plain space, none at its ends, and without
/// invisible formatting characters such as direction marks. Joiners stay: emoji are made with them.
QString foldedSpaces(QStringView text);

} // namespace mosslantern
