#include "ui/slide/style_choices.h"

#include <algorithm>

namespace mosslantern {

QStringList styleNames()
{
    QStringList names;
    for (const TextStyle style : allTextStyles) {
        QString name = rawText(style);
        name[0] = name[0].toUpper();
        names.append(name);
    }
    return names;
}

const std::array<RgbaColor, 2> &colorChoices(TextStyle style)
{
    static constexpr std::array boxColors{opaqueWhite, opaqueBlack};
    static constexpr std::array borderColors{opaqueBlack, clearColor};
    return style == TextStyle::boxed ? boxColors : borderColors;
}

int colorChoice(TextStyle style, const RgbaColor &color)
{
    const auto &choices = colorChoices(style);
    const auto found = std::ranges::find(choices, color);
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

} // namespace mosslantern
