#pragma once

// For functions whose loops the compiler turns into vector instructions: versions for AVX2 and SSSE3 are made
// beside the plain one, and the best that the processor has is chosen when the program starts. The sanitizers
// cannot start such programs.
#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__)
#define MOSSLANTERN_VECTORIZED [[gnu::target_clones("avx2", "ssse3", "default")]]
#else
#define MOSSLANTERN_VECTORIZED
#endif
