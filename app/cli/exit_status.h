#pragma once

namespace mosslantern {

/// Exit statuses of the tool; one ended by a signal exits with 128 and the signal's number.
enum ExitStatus : int { done = 0, failed = 1, badUsage = 2 };

} // namespace mosslantern
