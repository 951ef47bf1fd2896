#pragma once

#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace mosslantern {

/// The names of all symbols there are ("folder.badge.plus").
QStringList symbolNames();

/// A symbol in one colour, filling `size` (pixels) as far as its square shape allows. Null when there is no
/// symbol of this name.
QImage drawSymbol(const QString &name, QSize size, const QColor &color);

} // namespace mosslantern
