// Processor classification.  The classification is a pure function of the
// recorded CPUID results, so tests can feed it any processor; the live
// processor is read into the same record by readCpuid().
#ifndef VEK_CORE_CPU_H
#define VEK_CORE_CPU_H

#include <stdint.h>

namespace vek {

struct CpuidLeaf {
    uint32_t eax, ebx, ecx, edx;
};

// The CPUID results the classification looks at.  Leaves that the
// processor does not have (or that the classification does not reach) are
// left zero.
struct CpuidRecord {
    bool hasCpuid;    // the EFLAGS ID bit can be toggled
    CpuidLeaf leaf0;  // highest basic leaf, vendor string
    CpuidLeaf leaf1;  // family/model, feature flags
    CpuidLeaf leaf4;  // sub-leaf 0: cores per package
    CpuidLeaf ext0;   // 0x80000000: highest extended leaf
    CpuidLeaf ext1;   // 0x80000001: 64-bit extensions flag
    // Read for the extended levels only; the classification ignores them.
    CpuidLeaf leaf7;  // sub-leaf 0: AVX2, BMI1/2, AVX-512, VPCLMULQDQ
    uint64_t xcr0;    // XGETBV(0) where the OS has set OSXSAVE, else 0
};

// The processor type code (see `vek info` and cpu.cpp for the table).
uint32_t classifyCpu(const CpuidRecord& cpu);

// DispatchLevel for a processor type code.
int levelForCpuType(uint32_t cpuType);

// Whether leaf 0 carries the library maker's own vendor string.
bool isOwnVendor(const CpuidLeaf& leaf0);

// The level for a processor and the internal result of the selection:
// StatusNotGenuineCpu (20) when CPUID is missing or the vendor differs,
// else StatusOk.  The level never depends on that result.
int selectLevel(const CpuidRecord& cpu, int* selectionResult);

// The extended levels: given the level of the processor table, the level
// the processor and its operating system support above it.  Only a table
// level of kTableLevelMax is extended, to 6 (AVX2, BMI1, BMI2, PCLMULQDQ,
// with YMM state enabled by the OS) or 7 (level 6 plus AVX-512 F, BW, DQ,
// VL and VPCLMULQDQ, with opmask and ZMM state enabled); every other level
// is returned unchanged.
int extendLevel(const CpuidRecord& cpu, int tableLevel);

// A level capped by the text of VEK_MAX_LEVEL: a decimal level 0..7 lowers
// the level to at most that; a missing, empty or malformed text leaves it.
int capLevel(int level, const char* capText);

// The whole choice made at load: the table level, extended, then capped.
int chooseLevel(const CpuidRecord& cpu, const char* capText, int* selectionResult);

// Short description of a processor type code.
const char* cpuTypeDescription(uint32_t cpuType);

// Reads the live processor.
CpuidRecord readCpuid();
CpuidLeaf cpuid(uint32_t leaf, uint32_t subleaf);
bool cpuidAvailable();

// Whether a recorded processor can run the code of a level: it has the
// instruction sets of that level and of every level below it (and, for the
// extended levels, the OS saves their registers).
bool recordSupportsLevel(const CpuidRecord& cpu, int level);

// The same for the live processor; used by the tests and benchmarks to
// skip levels.
bool processorSupportsLevel(int level);

// The levels the live processor can run, lowest first (level 0 always):
// fills levels[0..count) and returns count (at most kLevelCount).
int supportedLevels(int* levels);

}  // namespace vek

#endif
