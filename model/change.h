#pragma once

#include <type_traits>

namespace mosslantern {

/// Gives a property of `owner` another value and tells of it by its signal; false when it had that value.
template <typename Owner, typename T>
bool change(Owner &owner, T &field, const std::type_identity_t<T> &value, void (Owner::*changed)())
{
    if (field == value)
        return false;
    field = value;
    (owner.*changed)();
    return true;
}

} // namespace mosslantern
