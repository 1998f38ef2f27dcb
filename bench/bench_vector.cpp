// Benchmark cases of the shift, conversion, copy and threshold family:
// every member on 4096-element vectors of random data (cache-resident),
// and the byte copy and move over 16 MiB, beyond the caches, where memory
// bandwidth decides.
//
// In-place members work on the same array call after call; shifts and
// thresholds take the same time whatever the data, so the data may settle.
#include <random>
#include <vector>

#include "bench_cases.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kElements = 4096;
constexpr int kLargeBytes = 16 << 20;

// A source and a destination of every element type, 1 KiB apart modulo
// 4 KiB (see bench_arith.cpp on 4K aliasing), filled once.
struct Buffers {
    static constexpr int kStride = 4 * kElements + 1024;  // bytes
    std::vector<unsigned char> block = std::vector<unsigned char>(2 * kStride + 64);
    void* src = block.data();
    void* dst = block.data() + kStride;
    Buffers() {
        std::mt19937 rng(1);
        for (auto& b : block) b = static_cast<unsigned char>(rng());
        // Floats of moderate size: no NaN or infinity patterns.
        float* f = static_cast<float*>(src);
        for (int i = 0; i < kElements; ++i) f[i] = std::uniform_real_distribution<float>(-1e6f, 1e6f)(rng);
    }
};
Buffers& buffers() {
    static Buffers b;
    return b;
}
template <class T>
T* src() {
    return static_cast<T*>(buffers().src);
}
template <class T>
T* dst() {
    return static_cast<T*>(buffers().dst);
}

// 16 MiB source and destination for the large copies; the move goes 4 KiB
// down within one block of 16 MiB + 4 KiB.
struct LargeBuffers {
    std::vector<Vek8u> from = std::vector<Vek8u>(kLargeBytes, 1), to = std::vector<Vek8u>(kLargeBytes, 2);
    std::vector<Vek8u> area = std::vector<Vek8u>(kLargeBytes + 4096, 3);
};
LargeBuffers& large() {
    static LargeBuffers b;
    return b;
}

void push(std::vector<BenchCase>& cases, std::string name, const char* exportName, int elements, double bytes,
          std::function<void(int)> run) {
    cases.push_back({std::move(name), exportName, elements, bytes, std::move(run)});
}

}  // namespace

VEK_BENCH_FAMILY(vector) {
    using namespace vek;
    large();  // allocated and touched now, not in the first timed call
    const double n = kElements;
#define VEK_SHIFT_CASE(name, T, shift)                                       \
    push(cases, #name "/shift:" #shift, #name, kElements, 2 * n * sizeof(T), \
         [](int level) { vekTable_##name[level](src<T>(), shift, dst<T>(), kElements); });
#define VEK_SHIFT_I_CASE(name, T, shift)                                     \
    push(cases, #name "/shift:" #shift, #name, kElements, 2 * n * sizeof(T), \
         [](int level) { vekTable_##name[level](shift, dst<T>(), kElements); });
    VEK_SHIFT_CASE(veksLShiftC_16s, Vek16s, 3)
    VEK_SHIFT_I_CASE(veksLShiftC_16s_I, Vek16s, 3)
    VEK_SHIFT_CASE(veksRShiftC_16s, Vek16s, 3)
    VEK_SHIFT_I_CASE(veksRShiftC_16s_I, Vek16s, 3)
    VEK_SHIFT_CASE(veksLShiftC_32s, Vek32s, 5)
    VEK_SHIFT_CASE(veksRShiftC_32s, Vek32s, 5)
    VEK_SHIFT_I_CASE(veksRShiftC_32s_I, Vek32s, 5)
#undef VEK_SHIFT_CASE
#undef VEK_SHIFT_I_CASE

    push(cases, "veksConvert_16s32s", "veksConvert_16s32s", kElements, 6 * n,
         [](int level) { vekTable_veksConvert_16s32s[level](src<Vek16s>(), dst<Vek32s>(), kElements); });
    push(cases, "veksConvert_32s16s", "veksConvert_32s16s", kElements, 6 * n,
         [](int level) { vekTable_veksConvert_32s16s[level](src<Vek32s>(), dst<Vek16s>(), kElements); });
    for (int sf : {0, 8}) {
        push(cases, "veksConvert_32s32f_Sfs/sf:" + std::to_string(sf), "veksConvert_32s32f_Sfs", kElements, 8 * n,
             [sf](int level) { vekTable_veksConvert_32s32f_Sfs[level](src<Vek32s>(), dst<Vek32f>(), kElements, sf); });
        push(cases, "veksConvert_32f32s_Sfs/sf:" + std::to_string(sf), "veksConvert_32f32s_Sfs", kElements, 8 * n,
             [sf](int level) { vekTable_veksConvert_32f32s_Sfs[level](src<Vek32f>(), dst<Vek32s>(), kElements, sf); });
    }
    push(cases, "veksThreshold_GT_32s_I", "veksThreshold_GT_32s_I", kElements, 8 * n,
         [](int level) { vekTable_veksThreshold_GT_32s_I[level](dst<Vek32s>(), kElements, 1 << 20); });
    push(cases, "veksThreshold_LT_32s_I", "veksThreshold_LT_32s_I", kElements, 8 * n,
         [](int level) { vekTable_veksThreshold_LT_32s_I[level](dst<Vek32s>(), kElements, -(1 << 20)); });

    push(cases, "veksCopy_8u/4096", "veksCopy_8u", kElements, 2 * n,
         [](int level) { vekTable_veksCopy_8u[level](src<Vek8u>(), dst<Vek8u>(), kElements); });
    push(cases, "veksCopy_8u/16MiB", "veksCopy_8u", kLargeBytes, 2.0 * kLargeBytes, [](int level) {
        LargeBuffers& b = large();
        vekTable_veksCopy_8u[level](b.from.data(), b.to.data(), kLargeBytes);
    });
    push(cases, "veksMove_8u/16MiB", "veksMove_8u", kLargeBytes, 2.0 * kLargeBytes, [](int level) {
        LargeBuffers& b = large();
        vekTable_veksMove_8u[level](b.area.data() + 4096, b.area.data(), kLargeBytes);
    });
}

}  // namespace vekbench
