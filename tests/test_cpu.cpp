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
    uint32_t type() const { return vek::classifyCpu(r); }
};

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

// The live processor: the chosen level follows from vekGetCpuType.  Under
// the emulated-processor matrix the runner states the type and level the
// model must give (VEK_EXPECT_CPU_TYPE, VEK_EXPECT_LEVEL).
TEST(CpuLive, ChosenLevelFollowsTheProcessorType) {
    const Vek32u type = vekGetCpuType();
    EXPECT_EQ(vek::DispatchLevel, vek::levelForCpuType(type));
    EXPECT_EQ(veksGetLibVersion()->level, vek::DispatchLevel);
    EXPECT_TRUE(vek::processorSupportsLevel(vek::DispatchLevel));
    if (const char* want = getenv("VEK_EXPECT_CPU_TYPE")) {
        EXPECT_EQ(type, static_cast<Vek32u>(atoi(want)));
    }
    if (const char* want = getenv("VEK_EXPECT_LEVEL")) {
        EXPECT_EQ(vek::DispatchLevel, atoi(want));
    }
    std::printf("processor type %u (%s), level %d (%s)\n", type, vek::cpuTypeDescription(type), vek::DispatchLevel,
                vek::levelIsaName(vek::DispatchLevel));
}

}  // namespace
}  // namespace vektest
