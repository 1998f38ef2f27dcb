// Processor classification and the level table.  The classification reads
// the family and model, the SSE feature bits, the 64-bit extension flag and
// the core count, and maps the processor to a type code; the level table
// maps the type code to a code path.
#include "cpu.h"

#include "dispatch.h"

namespace vek {

namespace {

inline uint32_t bits(uint32_t v, int lo, int count) { return (v >> lo) & ((1u << count) - 1u); }
inline bool bit(uint32_t v, int b) { return (v >> b) & 1u; }

// Features-only classification, used for processors of other vendors and
// for family/model combinations the tables do not name.
uint32_t fallbackType(bool sse42, bool sse41, bool ssse3, bool sse3, bool sse2, bool sse, bool x64) {
    if (sse42) return 69;
    if (sse41) return 68;
    if (ssse3) return 67;
    if (sse3) return 66;
    if (sse2) return 65;
    if (sse) return 64;
    if (x64) return 96;
    return 0;
}

}  // namespace

bool isOwnVendor(const CpuidLeaf& leaf0) {
    // "GenuineOrvan" as the three registers hold it: EBX, EDX, ECX.
    return leaf0.ebx == 0x756e6547u      // "Genu"
           && leaf0.edx == 0x4f656e69u   // "ineO"
           && leaf0.ecx == 0x6e617672u;  // "rvan"
}

uint32_t classifyCpu(const CpuidRecord& cpu) {
    if (!cpu.hasCpuid) return 0;

    const CpuidLeaf& l1 = cpu.leaf1;
    uint32_t model = bits(l1.eax, 4, 4);
    uint32_t family = bits(l1.eax, 8, 4);
    const uint32_t extModel = bits(l1.eax, 16, 4);
    const uint32_t extFamily = bits(l1.eax, 20, 8);
    const bool sse3 = bit(l1.ecx, 0), ssse3 = bit(l1.ecx, 9);
    const bool sse41 = bit(l1.ecx, 19), sse42 = bit(l1.ecx, 20);
    const bool sse = bit(l1.edx, 25), sse2 = bit(l1.edx, 26);
    const bool foreignIsa = bit(l1.edx, 30);
    const bool multiThread = bit(l1.edx, 28) && (bits(l1.ebx, 16, 8) >> 1) != 0;

    const bool x64 = (cpu.ext0.eax & 0x7FFFFFFFu) != 0 && bit(cpu.ext1.edx, 29);
    const uint32_t cores = cpu.leaf0.eax < 4 ? 1 : (cpu.leaf4.eax >> 26) + 1;

    if (family == 6 || family == 15) model += extModel * 16;
    if (family == 15) family = 15 + extFamily;

    const uint32_t fallback = fallbackType(sse42, sse41, ssse3, sse3, sse2, sse, x64);
    if (!isOwnVendor(cpu.leaf0)) return fallback;
    if (foreignIsa) return family == 7 ? 16 : 17;

    switch (family) {
    case 5:
        if (model == 1 || model == 2) return 1;
        if (model == 4) return 2;
        return fallback;
    case 6:
        switch (model) {
        case 1: return 3;
        case 3:
        case 5:
        case 6: return 4;
        case 7:
        case 8:
        case 10:
        case 11: return 5;
        case 9:
        case 13: return 9;
        case 14: return cores > 1 ? 11 : 10;
        case 15: return cores > 2 ? 34 : 33;
        case 23: return 68;
        case 26: return 35;
        case 28: return 36;
        default: return fallback;
        }
    case 15:
        if (sse3) return x64 ? 32 : 8;
        return multiThread ? 7 : 6;
    default: return fallback;
    }
}

int levelForCpuType(uint32_t cpuType) {
    switch (cpuType) {
    case 5:
    case 16:
    case 17:
    case 64: return 1;
    case 6:
    case 7:
    case 9:
    case 65: return 2;
    case 8:
    case 10:
    case 11:
    case 32:
    case 66: return 3;
    case 33:
    case 34:
    case 36:
    case 67: return 4;
    case 35:
    case 37:
    case 68:
    case 69: return 5;
    default: return 0;
    }
}

int selectLevel(const CpuidRecord& cpu, int* selectionResult) {
    const int level = levelForCpuType(classifyCpu(cpu));
    *selectionResult = (cpu.hasCpuid && isOwnVendor(cpu.leaf0)) ? StatusOk : StatusNotGenuineCpu;
    return level;
}

// ---- the extended levels ----------------------------------------------------

namespace {

// XCR0 components the OS must save: SSE and AVX (YMM) state for level 6,
// and the AVX-512 opmask, ZMM_Hi256 and Hi16_ZMM state for level 7.
constexpr uint64_t kYmmState = 0x06, kZmmState = 0xE0;

bool hasLevel1To5(const CpuidRecord& cpu, int level) {
    const CpuidLeaf& l1 = cpu.leaf1;
    const bool have[] = {true, bit(l1.edx, 25), bit(l1.edx, 26), bit(l1.ecx, 0), bit(l1.ecx, 9), bit(l1.ecx, 19)};
    for (int l = 0; l <= level; ++l)
        if (!have[l]) return false;
    return true;
}

bool hasLevel6(const CpuidRecord& cpu) {
    const CpuidLeaf &l1 = cpu.leaf1, &l7 = cpu.leaf7;
    const bool osSavesYmm = bit(l1.ecx, 27) && (cpu.xcr0 & kYmmState) == kYmmState;  // OSXSAVE
    const bool avx = bit(l1.ecx, 28), pclmul = bit(l1.ecx, 1), sse42 = bit(l1.ecx, 20);
    const bool avx2 = bit(l7.ebx, 5), bmi1 = bit(l7.ebx, 3), bmi2 = bit(l7.ebx, 8);
    return hasLevel1To5(cpu, kTableLevelMax) && sse42 && osSavesYmm && avx && avx2 && bmi1 && bmi2 && pclmul;
}

bool hasLevel7(const CpuidRecord& cpu) {
    const CpuidLeaf& l7 = cpu.leaf7;
    const bool osSavesZmm = (cpu.xcr0 & kZmmState) == kZmmState;
    const bool f = bit(l7.ebx, 16), dq = bit(l7.ebx, 17), bw = bit(l7.ebx, 30), vl = bit(l7.ebx, 31);
    const bool vpclmul = bit(l7.ecx, 10);
    return hasLevel6(cpu) && osSavesZmm && f && dq && bw && vl && vpclmul;
}

}  // namespace

bool recordSupportsLevel(const CpuidRecord& cpu, int level) {
    if (level == 0) return true;
    if (!cpu.hasCpuid || level < 0 || level >= kLevelCount) return false;
    if (level <= kTableLevelMax) return hasLevel1To5(cpu, level);
    return level == 6 ? hasLevel6(cpu) : hasLevel7(cpu);
}

int extendLevel(const CpuidRecord& cpu, int tableLevel) {
    if (tableLevel != kTableLevelMax) return tableLevel;
    if (hasLevel7(cpu)) return 7;
    if (hasLevel6(cpu)) return 6;
    return tableLevel;
}

int capLevel(int level, const char* capText) {
    if (!capText || capText[0] < '0' || capText[0] > '9' || capText[1] != '\0') return level;
    const int cap = capText[0] - '0';
    if (cap >= kLevelCount) return level;
    return level < cap ? level : cap;
}

int chooseLevel(const CpuidRecord& cpu, const char* capText, int* selectionResult) {
    return capLevel(extendLevel(cpu, selectLevel(cpu, selectionResult)), capText);
}

const char* cpuTypeDescription(uint32_t t) {
    switch (t) {
    case 0: return "unknown processor or no CPUID";
    case 1: return "family-5 processor, models 1-2";
    case 2: return "family-5 processor, model 4";
    case 3: return "family-6 processor, model 1";
    case 4: return "family-6 processor, models 3, 5, 6";
    case 5: return "family-6 processor, models 7, 8, 10, 11";
    case 6: return "family-15 processor without SSE3, single thread";
    case 7: return "family-15 processor without SSE3, multi-threaded";
    case 8: return "family-15 processor with SSE3";
    case 9: return "family-6 processor, models 9, 13";
    case 10: return "family-6 processor, model 14, one core";
    case 11: return "family-6 processor, model 14, several cores";
    case 16: return "processor of another architecture executing x86 code, family 7";
    case 17: return "processor of another architecture executing x86 code, other family";
    case 32: return "family-15 processor with SSE3 and 64-bit extensions";
    case 33: return "family-6 processor, model 15, up to two cores";
    case 34: return "family-6 processor, model 15, more than two cores";
    case 35: return "family-6 processor, model 26";
    case 36: return "family-6 processor, model 28";
    case 37: return "reserved";
    case 64: return "other processor with SSE";
    case 65: return "other processor with SSE2";
    case 66: return "other processor with SSE3";
    case 67: return "other processor with SSSE3";
    case 68: return "other processor with SSE4.1, or family-6 model 23";
    case 69: return "other processor with SSE4.2";
    case 96: return "other processor with 64-bit extensions but no SSE";
    default: return "unlisted processor type";
    }
}

// ---- the live processor ---------------------------------------------------

bool cpuidAvailable() {
#if defined(__x86_64__)
    return true;  // every x86-64 processor has CPUID
#else
    // CPUID exists when bit 21 (ID) of EFLAGS can be toggled.
    uint32_t before, after;
    asm volatile(
        "pushfl\n\t"
        "pushfl\n\t"
        "popl %0\n\t"
        "movl %0, %1\n\t"
        "xorl $0x200000, %1\n\t"
        "pushl %1\n\t"
        "popfl\n\t"
        "pushfl\n\t"
        "popl %1\n\t"
        "popfl\n\t"
        : "=&r"(before), "=&r"(after)
        :
        : "cc");
    return ((before ^ after) & 0x200000u) != 0;
#endif
}

// XGETBV with ECX = 0: the state components the OS saves.  Written as
// bytes so that no level's flags are needed to assemble it.
static uint64_t readXcr0() {
    uint32_t lo, hi;
    asm volatile(".byte 0x0f, 0x01, 0xd0" : "=a"(lo), "=d"(hi) : "c"(0));
    return (static_cast<uint64_t>(hi) << 32) | lo;
}

CpuidLeaf cpuid(uint32_t leaf, uint32_t subleaf) {
    CpuidLeaf r;
    asm volatile("cpuid" : "=a"(r.eax), "=b"(r.ebx), "=c"(r.ecx), "=d"(r.edx) : "a"(leaf), "c"(subleaf));
    return r;
}

CpuidRecord readCpuid() {
    CpuidRecord cpu = {};
    cpu.hasCpuid = cpuidAvailable();
    if (!cpu.hasCpuid) return cpu;
    cpu.leaf1 = cpuid(1, 0);
    cpu.ext0 = cpuid(0x80000000u, 0);
    if ((cpu.ext0.eax & 0x7FFFFFFFu) != 0) cpu.ext1 = cpuid(0x80000001u, 0);
    cpu.leaf0 = cpuid(0, 0);
    if (cpu.leaf0.eax >= 4) cpu.leaf4 = cpuid(4, 0);
    // Leaf 2 (cache descriptors) plays no part in the classification.
    if (cpu.leaf0.eax >= 7) cpu.leaf7 = cpuid(7, 0);
    if (bit(cpu.leaf1.ecx, 27)) cpu.xcr0 = readXcr0();  // OSXSAVE: XGETBV is enabled
    return cpu;
}

bool processorSupportsLevel(int level) { return recordSupportsLevel(readCpuid(), level); }

int supportedLevels(int* levels) {
    int count = 0;
    for (int level = 0; level < kLevelCount; ++level)
        if (processorSupportsLevel(level)) levels[count++] = level;
    return count;
}

}  // namespace vek

extern "C" VEK_API Vek32u VEK_CALL vekGetCpuType(void) { return vek::classifyCpu(vek::readCpuid()); }
