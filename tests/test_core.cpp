// Core services: status messages, aligned allocation, the dispatched
// allocators, thread queries, processor services and version records.
#include <set>

#include "harness.h"

namespace vektest {
namespace {

TEST(StatusStrings, KnownCodesAndQuirksAreExact) {
    EXPECT_STREQ(vekGetStatusString(0), "No error, it's OK");
    EXPECT_STREQ(vekGetStatusString(-9999), "The requested mode is currently not supported");
    EXPECT_STREQ(vekGetStatusString(38), "The Kernel is not symmetric");
    EXPECT_STREQ(vekGetStatusString(-209),
                 "Ripple in passband for Chebyshev1 design is less zero, equal to zero or greater than 29");
    EXPECT_STREQ(vekGetStatusString(StatusNullPointer), "Null pointer error");
    EXPECT_STREQ(vekGetStatusString(StatusSize), "Wrong value of data size");
    EXPECT_STREQ(vekGetStatusString(StatusStep), "Step value is not valid");
    EXPECT_STREQ(vekGetStatusString(StatusNotGenuineCpu), "The target cpu is not Genuine Orvan");
    EXPECT_STREQ(vekGetStatusString(StatusDstSize), "The size of destination buffer is less than expected one");
    EXPECT_STREQ(vekGetStatusString(-202), "RoiShift value is negative or not dividend to size of data type");
    EXPECT_STREQ(vekGetStatusString(23), "The newest version of VEK dll's not found by dispatcher");
}

TEST(StatusStrings, EveryCodeOfTheRangeHasAMessageExceptTheGaps) {
    const std::set<int> gaps = {-165, -89, -88, -87, -86, -85, -84, -68, -3, -1};
    int known = 0;
    for (int code = -10000; code <= 100; ++code) {
        const char* s = vekGetStatusString(code);
        ASSERT_NE(s, nullptr);
        const bool inTable = code == -9999 || code == -9998 || (code >= -209 && code <= 38 && !gaps.count(code));
        EXPECT_EQ(std::string(s) != "Unknown Status Code", inTable) << code;
        known += inTable;
    }
    EXPECT_EQ(known, 240);
    EXPECT_STREQ(vekGetStatusString(INT32_MIN), "Unknown Status Code");
    EXPECT_STREQ(vekGetStatusString(INT32_MAX), "Unknown Status Code");
}

TEST(Memory, BlocksAreAlignedAndUsable) {
    EXPECT_EQ(vekMalloc(0), nullptr);
    EXPECT_EQ(vekMalloc(-5), nullptr);
    vekFree(nullptr);
    veksFree(nullptr);
    vekiFree(nullptr);
    for (int n = 1; n < 300; n += 7) {
        unsigned char* p = static_cast<unsigned char*>(vekMalloc(n));
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 32, 0u);
        memset(p, 0x5A, n);  // the whole block is writable (ASan checks the bounds)
        vekFree(p);
    }
    Vek8u* q = veksMalloc_8u(100);
    ASSERT_NE(q, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(q) % 32, 0u);
    veksFree(q);
    EXPECT_EQ(veksMalloc_8u(0), nullptr);
}

TEST(Memory, ImageAllocatorsRoundTheStepUpTo32Bytes) {
    int step = -1;
    Vek8u* p = vekiMalloc_8u_C3(11, 2, &step);
    EXPECT_EQ(step, 64);  // 33 bytes rounded up
    ASSERT_NE(p, nullptr);
    memset(p, 1, 64 * 2);
    vekiFree(p);
    Vek32f* f = vekiMalloc_32f_C1(8, 1, &step);
    EXPECT_EQ(step, 32);
    vekiFree(f);
    const struct {
        void* (*alloc)(int, int, int*);
        int bytesPerPixel;
    } kinds[] = {
        {[](int w, int h, int* s) -> void* { return vekiMalloc_8u_C1(w, h, s); }, 1},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_16s_C1(w, h, s); }, 2},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_16u_C1(w, h, s); }, 2},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_16s_C3(w, h, s); }, 6},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_16u_C3(w, h, s); }, 6},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_32s_C1(w, h, s); }, 4},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_32s_C3(w, h, s); }, 12},
        {[](int w, int h, int* s) -> void* { return vekiMalloc_32f_C3(w, h, s); }, 12},
    };
    for (const auto& k : kinds) {
        for (int w : {1, 5, 31, 64}) {
            void* img = k.alloc(w, 3, &step);
            ASSERT_NE(img, nullptr);
            EXPECT_EQ(step, (w * k.bytesPerPixel + 31) / 32 * 32);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(img) % 32, 0u);
            memset(img, 0, static_cast<size_t>(step) * 3);
            vekiFree(img);
        }
        step = 7;
        EXPECT_EQ(k.alloc(0, 3, &step), nullptr);
        EXPECT_EQ(step, 0);
        step = 7;
        EXPECT_EQ(k.alloc(3, -1, &step), nullptr);
        EXPECT_EQ(step, 0);
        EXPECT_EQ(k.alloc(3, 3, nullptr), nullptr);
    }
    step = 7;
    EXPECT_EQ(vekiMalloc_32f_C3(0x7FFFFFF, 100, &step), nullptr);  // does not fit in 32 bits
    EXPECT_EQ(step, 0);
}

TEST(Memory, AlignPtr) {
    alignas(64) static char buffer[256];
    for (int align : {1, 2, 4, 16, 32, 64})
        for (int i = 0; i < 64; ++i) {
            char* p = static_cast<char*>(vekAlignPtr(buffer + i, align));
            EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % align, 0u);
            EXPECT_GE(p, buffer + i);
            EXPECT_LT(p, buffer + i + align);
        }
    EXPECT_EQ(vekAlignPtr(buffer, 64), buffer);
}

TEST(Services, ThreadQueriesReportOneThread) {
    int n = 0;
    EXPECT_EQ(vekGetNumThreads(&n), StatusNoOperation);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(vekSetNumThreads(8), StatusNoOperation);
}

TEST(Services, ProcessorQueries) {
    EXPECT_EQ(vekGetCpuFreqMhz(nullptr), StatusNullPointer);
    EXPECT_EQ(vekGetMaxCacheSizeB(nullptr), StatusNullPointer);
    const Vek64u c0 = vekGetCpuClocks(), c1 = vekGetCpuClocks();
    EXPECT_GE(c1, c0);
    int mhz = -1;
    EXPECT_EQ(vekGetCpuFreqMhz(&mhz), StatusOk);
    EXPECT_GT(mhz, 0);
    int cache = -1;
    const VekStatus s = vekGetMaxCacheSizeB(&cache);
    EXPECT_TRUE((s == StatusOk && cache > 0) || (s == StatusCacheSizeUnknown && cache == 0)) << s << " " << cache;
}

TEST(Services, FlushToZeroChangesSseResultsOnly) {
    if (!vek::processorSupportsLevel(1)) {
        EXPECT_EQ(vekSetFlushToZero(1), StatusCpuNotSupported);
        return;
    }
    ASSERT_EQ(vekSetFlushToZero(1), StatusOk);
    const Vek32f tiny = 1e-38f, half = 0.5f;
    Vek32f r = 1;
    EXPECT_EQ(vek::vekTable_veksMul_32f[1](&tiny, &half, &r, 1), StatusOk);
    EXPECT_EQ(r, 0.0f);  // the subnormal result is flushed
    ASSERT_EQ(vekSetFlushToZero(0), StatusOk);
    EXPECT_EQ(vek::vekTable_veksMul_32f[1](&tiny, &half, &r, 1), StatusOk);
    EXPECT_GT(r, 0.0f);
    const VekStatus daz = vekSetDenormAreZeros(0);
    EXPECT_TRUE(daz == StatusOk || daz == StatusCpuNotSupported);
}

// Each level answers with its own version record.
TEST(Versions, OneRecordPerLevel) {
    using Query = const VekLibraryVersion*(VEK_CALL*)(void);
    for (const Query* table :
         {vek::vekTable_veksGetLibVersion, vek::vekTable_vekiGetLibVersion, vek::vekTable_vekjGetLibVersion}) {
        for (int level = 0; level < vek::kLevelCount; ++level) {
            const VekLibraryVersion* v = table[level]();
            ASSERT_NE(v, nullptr);
            EXPECT_EQ(v->level, level);
            EXPECT_STREQ(v->targetIsa, vek::levelIsaName(level));
            EXPECT_EQ(v->major, 0);
        }
    }
    EXPECT_STREQ(vekiGetLibVersion()->name, "vek image");
}

// The dispatched services have no per-level arithmetic to compare; their
// differential cases check that every level behaves the same way.
template <class Alloc>
void sameAllocatorOnEveryLevel(const Alloc* table, int bytesPerPixel) {
    for (int level : availableLevels()) {
        int step = -1;
        auto* p = table[level](13, 2, &step);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(step, (13 * bytesPerPixel + 31) / 32 * 32);
        vek::vekTable_vekiFree[level](p);
        EXPECT_EQ(table[level](0, 2, &step), nullptr);
        EXPECT_EQ(step, 0);
    }
}
#define VEK_ALLOC_DIFF(name, bpp) VEK_DIFF_CASE(name, [] { sameAllocatorOnEveryLevel(vek::vekTable_##name, bpp); })
VEK_ALLOC_DIFF(vekiMalloc_8u_C1, 1);
VEK_ALLOC_DIFF(vekiMalloc_8u_C3, 3);
VEK_ALLOC_DIFF(vekiMalloc_16s_C1, 2);
VEK_ALLOC_DIFF(vekiMalloc_16s_C3, 6);
VEK_ALLOC_DIFF(vekiMalloc_16u_C1, 2);
VEK_ALLOC_DIFF(vekiMalloc_16u_C3, 6);
VEK_ALLOC_DIFF(vekiMalloc_32s_C1, 4);
VEK_ALLOC_DIFF(vekiMalloc_32s_C3, 12);
VEK_ALLOC_DIFF(vekiMalloc_32f_C1, 4);
VEK_ALLOC_DIFF(vekiMalloc_32f_C3, 12);
VEK_DIFF_CASE(vekiFree, [] {
    for (int level : availableLevels())
        vek::vekTable_vekiFree[level](vekMalloc(10)), vek::vekTable_vekiFree[level](nullptr);
});
VEK_DIFF_CASE(veksFree, [] {
    for (int level : availableLevels())
        vek::vekTable_veksFree[level](vekMalloc(10)), vek::vekTable_veksFree[level](nullptr);
});
VEK_DIFF_CASE(veksMalloc_8u, [] {
    for (int level : availableLevels()) {
        Vek8u* p = vek::vekTable_veksMalloc_8u[level](33);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 32, 0u);
        vekFree(p);
        EXPECT_EQ(vek::vekTable_veksMalloc_8u[level](0), nullptr);
    }
});
#define VEK_VERSION_DIFF(name)                                                                      \
    VEK_DIFF_CASE(name, [] {                                                                        \
        for (int level : availableLevels()) EXPECT_EQ(vek::vekTable_##name[level]()->level, level); \
    })
VEK_VERSION_DIFF(veksGetLibVersion);
VEK_VERSION_DIFF(vekiGetLibVersion);
VEK_VERSION_DIFF(vekjGetLibVersion);

}  // namespace
}  // namespace vektest
