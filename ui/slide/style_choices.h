#pragma once

#include "model/rgba_color.h"
#include "model/text_style.h"

#include <QtCore/QStringList>

#include <array>

namespace mosslantern {

// What the pickers of a style offer.

/// For people, in the order of the styles.
[[nodiscard]] QStringList styleNames();

/// The colours that go with a style: white or black for the box of `boxed`, black or none for the border of
/// `classic`. No picker offers colours for the others.
[[nodiscard]] const std::array<RgbaColor, 2> &colorChoices(TextStyle style);

/// Which of them a colour is, -1 when it is neither.
[[nodiscard]] int colorChoice(TextStyle style, const RgbaColor &color);

} // namespace mosslantern
