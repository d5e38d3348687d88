#pragma once

/// Marks a loop over pixels that is compiled twice, the second time for processors with 256-bit
/// integer vectors; the loader picks the one that runs. Sanitizers run before the loader's choice
/// is ready to be made, so they get the plain one only.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VELORAMA_VECTORISED __attribute__((target_clones("avx2", "default")))
#else
#define VELORAMA_VECTORISED
#endif
