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

// Short description of a processor type code.
const char* cpuTypeDescription(uint32_t cpuType);

// Reads the live processor.
CpuidRecord readCpuid();
CpuidLeaf cpuid(uint32_t leaf, uint32_t subleaf);
bool cpuidAvailable();

// Whether the live processor can run the code of a level (its instruction
// set bit is present); used by the tests and benchmarks to skip levels.
bool processorSupportsLevel(int level);

// The levels the live processor can run, lowest first (level 0 always):
// fills levels[0..count) and returns count (at most six).
int supportedLevels(int* levels);

}  // namespace vek

#endif
