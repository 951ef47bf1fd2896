#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace mosslantern {

/// A word of the command line, or the name of a file, as text. What is not UTF-8 in it becomes halves of
/// surrogate pairs: such a text is equal to no proper one, and Qt finds no file by it.
QString decoded(QByteArrayView bytes);

/// Whether `text` is without such halves.
bool isProperText(QStringView text);

} // namespace mosslantern
