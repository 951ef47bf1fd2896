#pragma once

#include <QtCore/QByteArrayView>

#include <cstdio>
#include <cstdlib>

namespace mosslantern {

/// One try of a fuzz target: reads `bytes` as the program would and ends the process where something that
/// always holds does not. Each target has its own; libFuzzer searches for bytes, `./test` gives the stored
/// ones.
void tryBytes(QByteArrayView bytes);

/// Ends the process, with `rule`, when it does not hold.
inline void expect(bool holds, const char *rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", rule);
    std::abort();
}

} // namespace mosslantern
