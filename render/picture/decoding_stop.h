#pragma once

namespace mosslantern {

/// Whether the program has been asked to end, so that no picture is worth waiting for. May be asked from any
/// thread. Nothing stops decoders until setDecodingStop() has been called.
[[nodiscard]] bool isDecodingStopped();

/// `isStopped` is asked from now on; null: nothing stops decoders. It is the whole process that ends.
void setDecodingStop(bool (*isStopped)());

} // namespace mosslantern
