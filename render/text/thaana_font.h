#pragma once

#include <QtCore/QString>

namespace mosslantern {

/// The family that draws Thaana: the letters of Noto Sans Thaana, registered when they are first asked for in
/// a form that Qt shapes. Empty where that font is not installed.
[[nodiscard]] QString thaanaFamily();

} // namespace mosslantern
