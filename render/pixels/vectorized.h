#pragma once

// For functions whose loops the compiler turns into vector instructions: a second version for AVX2 is made
// and chosen when the program starts on a processor that has it. The sanitizers cannot start such programs.
#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__)
#define MOSSLANTERN_VECTORIZED [[gnu::target_clones("avx2", "default")]]
#else
#define MOSSLANTERN_VECTORIZED
#endif
