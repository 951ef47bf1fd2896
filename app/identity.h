#pragma once

namespace mosslantern {

/// Sets the names by which the platform keeps this application's data and preferences. Window and tool share
/// them, and so the library.
void setApplicationIdentity();

} // namespace mosslantern
