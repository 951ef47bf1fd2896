#pragma once

#include "model/live_query.h"

#include <algorithm>

namespace mosslantern {

/// The record `by` rows below `selected`, as far as the list goes; from none, the first one. Null when the
/// list is empty.
template <typename T>
T *movedSelection(const LiveQuery<T> &list, const T *selected, int by)
{
    if (list.count() == 0)
        return nullptr;
    return list.at(selected ? std::clamp(list.indexOf(selected) + by, 0, list.count() - 1) : 0);
}

} // namespace mosslantern
