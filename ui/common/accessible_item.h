#pragma once

namespace mosslantern {

/// Lets assistive tools know of every item of Qt Quick whether it is enabled, which Qt 6.4 does not tell
/// them, keeps them from acting on a disabled one, and never hands them what is typed into a field for
/// secrets. Once; later calls do nothing.
void installAccessibleItems();

} // namespace mosslantern
