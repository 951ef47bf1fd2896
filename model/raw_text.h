#pragma once

#include <QtCore/QStringView>

#include <algorithm>
#include <optional>

namespace mosslantern {

/// The one of `values` with exactly this raw text, if there is one.
template <typename Values>
std::optional<typename Values::value_type> valueWithRawText(const Values &values, QStringView text)
{
    const auto found = std::ranges::find_if(values, [text](auto value) { return text == rawText(value); });
    return found == values.end() ? std::nullopt : std::optional(*found);
}

} // namespace mosslantern
