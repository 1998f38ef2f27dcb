// The one list of code-path levels.
//
// VEK_LEVEL_LIST(X) expands X(index, ns, isaName) once per level, lowest
// first.  `ns` is both the namespace of the level's implementations and the
// suffix of the kernel files compiled with its flags (arith_sse2.cpp is
// level 2); `isaName` is what `vek info`, the version records and the
// benchmarks print.  cmake/VekLevels.cmake and tests/check_isa.py read this
// file, so a level is added here and nowhere else (plus its flags in
// VekLevels.cmake and its instruction rules in check_isa.py).
//
// Levels 0 to 5 follow the processor table of vekGetCpuType.  Levels 6 and
// 7 are taken above level 5 only where the processor and the operating
// system support them (cpu.cpp); VEK_MAX_LEVEL caps the choice.
#ifndef VEK_CORE_LEVELS_H
#define VEK_CORE_LEVELS_H

// clang-format off
#define VEK_LEVEL_LIST(X)       \
    X(0, plain,  "plain")       \
    X(1, sse,    "SSE")         \
    X(2, sse2,   "SSE2")        \
    X(3, sse3,   "SSE3")        \
    X(4, ssse3,  "SSSE3")       \
    X(5, sse41,  "SSE4.1")      \
    X(6, avx2,   "AVX2")        \
    X(7, avx512, "AVX-512")
// clang-format on

namespace vek {

#define VEK_LEVEL_COUNT_ONE(index, ns, isa) +1
constexpr int kLevelCount = 0 VEK_LEVEL_LIST(VEK_LEVEL_COUNT_ONE);
#undef VEK_LEVEL_COUNT_ONE

// The highest level the processor table gives; the levels above it are the
// extended ones.
constexpr int kTableLevelMax = 5;

}  // namespace vek

#endif
