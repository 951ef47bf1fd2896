#pragma once

namespace mosslantern {

/// Passes Qt's warnings on to standard error in the form of report(), but for those that tell the user
/// nothing: what picture files contain is judged by our own errors. What Qt cannot go on without ends the
/// program with the status of a failure.
void quietQt();

} // namespace mosslantern
