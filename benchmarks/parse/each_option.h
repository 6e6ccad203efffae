#ifndef KELPLIB_BENCHMARKS_EACH_OPTION_H
#define KELPLIB_BENCHMARKS_EACH_OPTION_H

/// KELPLIB_EACH_OPTION(MACRO): MACRO(00) to MACRO(09), or to MACRO(99), as KELPLIB_BENCHMARK_OPTIONS says; for libraries
/// whose flags are global variables.
#define KELPLIB_TEN_OPTIONS(MACRO, ten) \
    MACRO(ten##0)                       \
    MACRO(ten##1)                       \
    MACRO(ten##2) MACRO(ten##3) MACRO(ten##4) MACRO(ten##5) MACRO(ten##6) MACRO(ten##7) MACRO(ten##8) MACRO(ten##9)

#if KELPLIB_BENCHMARK_OPTIONS == 10
#define KELPLIB_EACH_OPTION(MACRO) KELPLIB_TEN_OPTIONS(MACRO, 0)
#else
#define KELPLIB_EACH_OPTION(MACRO)                                                            \
    KELPLIB_TEN_OPTIONS(MACRO, 0)                                                             \
    KELPLIB_TEN_OPTIONS(MACRO, 1)                                                             \
    KELPLIB_TEN_OPTIONS(MACRO, 2)                                                             \
    KELPLIB_TEN_OPTIONS(MACRO, 3)                                                             \
    KELPLIB_TEN_OPTIONS(MACRO, 4)                                                             \
    KELPLIB_TEN_OPTIONS(MACRO, 5) KELPLIB_TEN_OPTIONS(MACRO, 6) KELPLIB_TEN_OPTIONS(MACRO, 7) \
        KELPLIB_TEN_OPTIONS(MACRO, 8) KELPLIB_TEN_OPTIONS(MACRO, 9)
#endif

#endif
