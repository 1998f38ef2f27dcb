// Processor classification from recorded CPUID results, the level table,
// and (under emulation) the live processor against what the runner expects.
#include <stdlib.h>

#include "harness.h"

namespace vektest {
namespace {

using vek::CpuidRecord;

// Builders for recorded processors.
constexpr uint32_t SSE = 1u << 25, SSE2 = 1u << 26, HTT = 1u << 28, IA64 = 1u << 30;
constexpr uint32_t SSE3 = 1u << 0, SSSE3 = 1u << 9, SSE41 = 1u << 19, SSE42 = 1u << 20;
constexpr uint32_t PCLMUL = 1u << 1, OSXSAVE = 1u << 27, AVX = 1u << 28;  // leaf 1 ECX
constexpr uint32_t BMI1 = 1u << 3, AVX2 = 1u << 5, BMI2 = 1u << 8;        // leaf 7 EBX
constexpr uint32_t AVX512F = 1u << 16, AVX512DQ = 1u << 17, AVX512BW = 1u << 30, AVX512VL = 1u << 31;
constexpr uint32_t VPCLMUL = 1u << 10;  // leaf 7 ECX

struct Cpu {
    CpuidRecord r = {};
    Cpu(bool own = true) {
        r.hasCpuid = true;
        r.leaf0.eax = 1;
        if (own)
            r.leaf0.ebx = 0x756e6547, r.leaf0.edx = 0x4f656e69, r.leaf0.ecx = 0x6e617672;  // GenuineOrvan
        else
            r.leaf0.ebx = 0x68747541, r.leaf0.edx = 0x69746e65, r.leaf0.ecx = 0x444d4163;  // another vendor
    }
    Cpu& sig(uint32_t family, uint32_t model, uint32_t extFamily = 0, uint32_t extModel = 0) {
        r.leaf1.eax = (extFamily << 20) | (extModel << 16) | (family << 8) | (model << 4);
        return *this;
    }
    Cpu& edx(uint32_t f) {
        r.leaf1.edx |= f;
        return *this;
    }
    Cpu& ecx(uint32_t f) {
        r.leaf1.ecx |= f;
        return *this;
    }
    Cpu& logical(uint32_t n) {
        r.leaf1.ebx = n << 16;
        return *this;
    }
    Cpu& cores(uint32_t n) {
        r.leaf0.eax = 4;
        r.leaf4.eax = (n - 1) << 26;
        return *this;
    }
    Cpu& maxLeaf(uint32_t n) {
        r.leaf0.eax = n;
        return *this;
    }
    Cpu& x64() {
        r.ext0.eax = 0x80000008;
        r.ext1.edx = 1u << 29;
        return *this;
    }
    Cpu& leaf7(uint32_t ebx, uint32_t ecx = 0) {
        r.leaf0.eax = r.leaf0.eax < 7 ? 7 : r.leaf0.eax;
        r.leaf7.ebx |= ebx, r.leaf7.ecx |= ecx;
        return *this;
    }
    Cpu& xcr0(uint64_t v) {
        r.xcr0 = v;
        return *this;
    }
    uint32_t type() const { return vek::classifyCpu(r); }
    int level(const char* cap = nullptr) const {
        int result;
        return vek::chooseLevel(r, cap, &result);
    }
};

// A processor of another vendor with SSE4.2 (type 69, level 5), and the same
// with AVX2 and with AVX-512, their OS saving the registers.
Cpu sse42Cpu() {
    return Cpu(false).sig(6, 10, 0, 3).edx(SSE | SSE2).ecx(SSE3 | SSSE3 | SSE41 | SSE42 | PCLMUL | OSXSAVE | AVX);
}
Cpu avx2Cpu() { return sse42Cpu().leaf7(AVX2 | BMI1 | BMI2).xcr0(0x7); }
Cpu avx512Cpu() { return avx2Cpu().leaf7(AVX512F | AVX512DQ | AVX512BW | AVX512VL, VPCLMUL).xcr0(0xE7); }

TEST(CpuClassification, OwnVendorFamilySixModels) {
    const struct {
        uint32_t model, code;
    } table[] = {{1, 3},  {3, 4}, {5, 4},  {6, 4},   {7, 5},   {8, 5},  {10, 5},
                 {11, 5}, {9, 9}, {13, 9}, {23, 68}, {26, 35}, {28, 36}};
    for (const auto& t : table) {
        // The combined model = model + 16 x extended model.
        EXPECT_EQ(Cpu().sig(6, t.model & 15, 0, t.model >> 4).type(), t.code) << "model " << t.model;
    }
    EXPECT_EQ(Cpu().sig(6, 14).cores(1).type(), 10u);
    EXPECT_EQ(Cpu().sig(6, 14).cores(4).type(), 11u);             // leaf 4 EAX[31:26] = 3
    EXPECT_EQ(Cpu().sig(6, 14).cores(4).maxLeaf(3).type(), 10u);  // no leaf 4: one core
    EXPECT_EQ(Cpu().sig(6, 15).cores(2).type(), 33u);
    EXPECT_EQ(Cpu().sig(6, 15).cores(3).type(), 34u);
    // Models the table does not name fall back to the features.
    for (uint32_t model : {0u, 2u, 4u, 12u, 16u, 22u, 24u, 25u, 27u, 29u, 47u})
        EXPECT_EQ(Cpu().sig(6, model & 15, 0, model >> 4).edx(SSE | SSE2).type(), 65u) << "model " << model;
}

TEST(CpuClassification, OwnVendorFamiliesFiveAndFifteen) {
    EXPECT_EQ(Cpu().sig(5, 1).type(), 1u);
    EXPECT_EQ(Cpu().sig(5, 2).type(), 1u);
    EXPECT_EQ(Cpu().sig(5, 4).type(), 2u);
    EXPECT_EQ(Cpu().sig(5, 8).type(), 0u);
    EXPECT_EQ(Cpu().sig(15, 2).edx(SSE | SSE2).type(), 6u);
    EXPECT_EQ(Cpu().sig(15, 2).edx(SSE | SSE2 | HTT).logical(2).type(), 7u);
    EXPECT_EQ(Cpu().sig(15, 2).edx(SSE | SSE2 | HTT).logical(1).type(), 6u);  // one logical processor
    EXPECT_EQ(Cpu().sig(15, 3).edx(SSE | SSE2).ecx(SSE3).type(), 8u);
    EXPECT_EQ(Cpu().sig(15, 4).edx(SSE | SSE2).ecx(SSE3).x64().type(), 32u);
    // Extended family 1 makes family 16: no longer 15, so the features decide.
    EXPECT_EQ(Cpu().sig(15, 2, 1).edx(SSE | SSE2).ecx(SSE3).type(), 66u);
    EXPECT_EQ(Cpu().sig(4, 2).edx(SSE).type(), 64u);
}

TEST(CpuClassification, ForeignArchitectureFlag) {
    EXPECT_EQ(Cpu().sig(7, 0).edx(IA64).type(), 16u);
    EXPECT_EQ(Cpu().sig(6, 8).edx(IA64).type(), 17u);
    EXPECT_EQ(Cpu(false).sig(7, 0).edx(IA64 | SSE).type(), 64u);  // other vendors ignore the flag
}

TEST(CpuClassification, OtherVendorsByFeatures) {
    EXPECT_EQ(Cpu(false).sig(6, 8).type(), 0u);
    EXPECT_EQ(Cpu(false).sig(6, 8).x64().type(), 96u);
    EXPECT_EQ(Cpu(false).sig(6, 8).edx(SSE).type(), 64u);
    EXPECT_EQ(Cpu(false).sig(6, 8).edx(SSE | SSE2).type(), 65u);
    EXPECT_EQ(Cpu(false).sig(6, 15).edx(SSE | SSE2).ecx(SSE3).type(), 66u);
    EXPECT_EQ(Cpu(false).sig(6, 15).edx(SSE | SSE2).ecx(SSE3 | SSSE3).type(), 67u);
    EXPECT_EQ(Cpu(false).sig(6, 7, 0, 1).edx(SSE | SSE2).ecx(SSE3 | SSSE3 | SSE41).type(), 68u);
    EXPECT_EQ(Cpu(false).sig(6, 10, 0, 1).edx(SSE | SSE2).ecx(SSE3 | SSSE3 | SSE41 | SSE42).type(), 69u);
    // The vendor string is compared in full.
    Cpu almost;
    almost.r.leaf0.ecx ^= 1u << 24;
    EXPECT_EQ(almost.sig(6, 8).edx(SSE).type(), 64u);
    // The extended-leaf guard ignores bit 31.
    Cpu noExt(false);
    noExt.r.ext0.eax = 0x80000000u;
    noExt.r.ext1.edx = 1u << 29;
    EXPECT_EQ(noExt.sig(6, 8).type(), 0u);
    CpuidRecord none = {};
    EXPECT_EQ(vek::classifyCpu(none), 0u);
}

TEST(CpuClassification, LevelTable) {
    const struct {
        int level;
        std::vector<uint32_t> codes;
    } table[] = {
        {0, {0, 1, 2, 3, 4, 12, 96, 100}}, {1, {5, 16, 17, 64}},  {2, {6, 7, 9, 65}},
        {3, {8, 10, 11, 32, 66}},          {4, {33, 34, 36, 67}}, {5, {35, 37, 68, 69}},
    };
    for (const auto& row : table)
        for (uint32_t code : row.codes) EXPECT_EQ(vek::levelForCpuType(code), row.level) << "code " << code;
}

TEST(CpuClassification, SelectionResultIsDiscardedAndLevelKept) {
    int result = -1;
    EXPECT_EQ(vek::selectLevel(Cpu().sig(6, 7, 0, 1).r, &result), 5);
    EXPECT_EQ(result, StatusOk);
    EXPECT_EQ(vek::selectLevel(Cpu(false).sig(6, 8).edx(SSE | SSE2).r, &result), 2);
    EXPECT_EQ(result, StatusNotGenuineCpu);
    CpuidRecord none = {};
    EXPECT_EQ(vek::selectLevel(none, &result), 0);
    EXPECT_EQ(result, StatusNotGenuineCpu);
}

// Levels 6 and 7 need every feature of their set and the OS's saving of the
// wider registers, and only ever raise a table level of 5.
TEST(CpuExtendedLevels, FeaturesAndOsStateDecide) {
    EXPECT_EQ(sse42Cpu().level(), 5);
    EXPECT_EQ(avx2Cpu().type(), 69u);  // the processor type does not change
    EXPECT_EQ(avx2Cpu().level(), 6);
    EXPECT_EQ(avx512Cpu().type(), 69u);
    EXPECT_EQ(avx512Cpu().level(), 7);
    // AVX2 present, but the OS has not enabled YMM state (or XGETBV at all).
    EXPECT_EQ(avx2Cpu().xcr0(0x3).level(), 5);
    Cpu noOsxsave = avx2Cpu();
    noOsxsave.r.leaf1.ecx &= ~OSXSAVE;
    EXPECT_EQ(noOsxsave.level(), 5);
    // Each feature of level 6 is required.
    for (uint32_t missing : {AVX2, BMI1, BMI2}) {
        Cpu c = avx2Cpu();
        c.r.leaf7.ebx &= ~missing;
        EXPECT_EQ(c.level(), 5) << missing;
    }
    for (uint32_t missing : {PCLMUL, AVX, SSE42}) {
        Cpu c = avx2Cpu();
        c.r.leaf1.ecx &= ~missing;
        EXPECT_EQ(c.level(), 5) << missing;
    }
    // AVX-512 needs F, BW, DQ, VL, VPCLMULQDQ and opmask/ZMM state.
    EXPECT_EQ(avx512Cpu().xcr0(0x7).level(), 6);
    EXPECT_EQ(avx512Cpu().xcr0(0x67).level(), 6);
    for (uint32_t missing : {AVX512F, AVX512DQ, AVX512BW, AVX512VL}) {
        Cpu c = avx512Cpu();
        c.r.leaf7.ebx &= ~missing;
        EXPECT_EQ(c.level(), 6) << missing;
    }
    Cpu noVpclmul = avx512Cpu();
    noVpclmul.r.leaf7.ecx = 0;
    EXPECT_EQ(noVpclmul.level(), 6);
    // AVX-512 without AVX2 is not level 7.
    Cpu noAvx2 = avx512Cpu();
    noAvx2.r.leaf7.ebx &= ~AVX2;
    EXPECT_EQ(noAvx2.level(), 5);
    // Only a table level of 5 is extended: an own-vendor family-6 model-14
    // processor stays on level 3 whatever it reports.
    Cpu ownModel14 = avx512Cpu();
    ownModel14.r.leaf0 = Cpu().r.leaf0;
    ownModel14.leaf7(0).sig(6, 14);
    EXPECT_EQ(ownModel14.type(), 10u);
    EXPECT_EQ(ownModel14.level(), 3);
    ownModel14.sig(6, 10, 0, 1);  // model 26: type 35, level 5
    EXPECT_EQ(ownModel14.level(), 7);
    // What a level may run on is cumulative.
    EXPECT_TRUE(vek::recordSupportsLevel(avx512Cpu().r, 7));
    EXPECT_FALSE(vek::recordSupportsLevel(avx2Cpu().r, 7));
    EXPECT_TRUE(vek::recordSupportsLevel(avx2Cpu().r, 6));
    Cpu noSse2 = avx2Cpu();
    noSse2.r.leaf1.edx &= ~SSE2;
    EXPECT_FALSE(vek::recordSupportsLevel(noSse2.r, 6));
    EXPECT_FALSE(vek::recordSupportsLevel(noSse2.r, 3));
}

// VEK_MAX_LEVEL: a digit caps the level; anything else leaves it.
TEST(CpuExtendedLevels, CapFromTheEnvironment) {
    EXPECT_EQ(avx512Cpu().level("6"), 6);
    EXPECT_EQ(avx512Cpu().level("0"), 0);
    EXPECT_EQ(avx2Cpu().level("7"), 6);  // a cap never raises
    EXPECT_EQ(sse42Cpu().level("3"), 3);
    for (const char* ignored : {"", "8", "12", "-1", "x", "5 "}) EXPECT_EQ(avx512Cpu().level(ignored), 7) << ignored;
}

// The live processor: the chosen level follows from vekGetCpuType.  Under
// the emulated-processor matrix the runner states the type and level the
// model must give (VEK_EXPECT_CPU_TYPE, VEK_EXPECT_LEVEL).
TEST(CpuLive, ChosenLevelFollowsTheProcessorType) {
    const Vek32u type = vekGetCpuType();
    int result;
    const vek::CpuidRecord live = vek::readCpuid();
    EXPECT_EQ(vek::DispatchLevel, vek::chooseLevel(live, getenv("VEK_MAX_LEVEL"), &result));
    EXPECT_EQ(vek::extendLevel(live, vek::levelForCpuType(type)), vek::chooseLevel(live, nullptr, &result));
    EXPECT_EQ(veksGetLibVersion()->level, vek::DispatchLevel);
    EXPECT_TRUE(vek::processorSupportsLevel(vek::DispatchLevel));
    if (const char* want = getenv("VEK_EXPECT_CPU_TYPE")) {
        EXPECT_EQ(type, static_cast<Vek32u>(atoi(want)));
    }
    if (const char* want = getenv("VEK_EXPECT_LEVEL")) {
        EXPECT_EQ(vek::DispatchLevel, atoi(want));
    }
    std::printf("processor type %u (%s), table level %d, level %d (%s)\n", type, vek::cpuTypeDescription(type),
                vek::levelForCpuType(type), vek::DispatchLevel, vek::levelIsaName(vek::DispatchLevel));
}

}  // namespace
}  // namespace vektest
