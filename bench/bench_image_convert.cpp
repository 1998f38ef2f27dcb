// Benchmark cases of the image conversions and per-pixel arithmetic.
//
// Cache-resident cases work on a 64 x 64 region whose rows are padded
// (steps 64 bytes longer than a row), so they take the row-by-row path.
// The 4096 x 4096 conversions are contiguous, far larger than the caches,
// and measure memory bandwidth: rivals_image_convert.cpp times a memcpy of
// the same traffic (bytes read plus bytes written) beside them.
//
// The in-place members run on the same image call after call with
// parameters that keep the data where it started, or nearly: a product by
// -1 and a 12-bit sign extension of 12-bit data change nothing after the
// first calls, and the shifts soon reach 0 or -1, on which the plain code
// is no faster than on other data (it has no data-dependent branches).
#include <memory>
#include <type_traits>
#include <vector>

#include "bench_cases.h"
#include "bench_image_convert.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kSide = 64;      // cache-resident region: kSide x kSide samples
constexpr int kPadBytes = 64;  // added to each row of the cache-resident images

// Pseudo-random samples from a cheap generator: the large images are made
// during their first timed call.
template <class T>
std::vector<T> randomSamples(size_t n) {
    uint32_t state = 12345;
    std::vector<T> v(n);
    for (T& x : v) {
        state = state * 1664525u + 1013904223u;
        const int32_t r = static_cast<int32_t>(state >> 8);  // 24 bits
        if constexpr (std::is_floating_point_v<T>)
            x = static_cast<T>(r % 27500) * 0.01f - 10.0f;  // -10..265
        else if constexpr (sizeof(T) == 4)
            x = r % 140001 - 70000;
        else
            x = static_cast<T>(r);
    }
    return v;
}

template <class Fn>
struct ConvertTypes;
template <class S, class D>
struct ConvertTypes<VekStatus(VEK_CALL*)(const S*, int, D*, int, VekiSize)> {
    using Source = S;
    using Destination = D;
};

// A conversion of a width x height region; `padBytes` lengthens each row.
template <class Fn>
BenchCase convertCase(const char* exportName, const Fn* table, int width, int height, int padBytes) {
    using S = typename ConvertTypes<Fn>::Source;
    using D = typename ConvertTypes<Fn>::Destination;
    const int srcStep = width * sizeof(S) + padBytes, dstStep = width * sizeof(D) + padBytes;
    struct Images {
        std::vector<S> src;
        std::vector<D> dst;
    };
    auto images = std::make_shared<Images>();
    auto run = [=](int level) {
        if (images->src.empty()) {  // allocated on first use: the large cases need 80 MB
            images->src = randomSamples<S>(size_t(srcStep / sizeof(S)) * height);
            images->dst.assign(size_t(dstStep / sizeof(D)) * height, D());
        }
        table[level](images->src.data(), srcStep, images->dst.data(), dstStep, VekiSize{width, height});
    };
    const double bytes = double(width) * height * (sizeof(S) + sizeof(D));
    return {std::string(exportName) + "/" + std::to_string(width) + "x" + std::to_string(height), exportName,
            width * height, bytes, run};
}

// An in-place member on a cache-resident image: call(level, image, step, roi).
template <class T, class Call>
BenchCase inPlaceCase(const char* exportName, std::string name, Call call) {
    const int step = kSide * sizeof(T) + kPadBytes;
    auto image = std::make_shared<std::vector<T>>(randomSamples<T>(size_t(step / sizeof(T)) * kSide));
    if constexpr (std::is_same_v<T, Vek32s>)
        for (T& x : *image) x &= 0xFFF;  // 12-bit data
    auto run = [=](int level) { call(level, image->data(), step, VekiSize{kSide, kSide}); };
    return {std::move(name), exportName, kSide * kSide, 2.0 * kSide * kSide * sizeof(T), run};
}

}  // namespace

VEK_BENCH_FAMILY(image_convert) {
#define VEK_CONVERT_CASE(codes, w, h, pad) \
    cases.push_back(convertCase("vekiConvert_" #codes "_C1R", vek::vekTable_vekiConvert_##codes##_C1R, w, h, pad));
    // cache-resident
    VEK_CONVERT_CASE(8u16u, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(8u32f, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(16s32s, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(16u32f, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(32s8u, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(16s8u, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(16u8u, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(32f8u, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(32f16s, kSide, kSide, kPadBytes)
    VEK_CONVERT_CASE(32f16u, kSide, kSide, kPadBytes)
    // memory-bound, contiguous
    VEK_CONVERT_CASE(8u16u, kLargeSide, kLargeSide, 0)
    VEK_CONVERT_CASE(8u32f, kLargeSide, kLargeSide, 0)
    VEK_CONVERT_CASE(16s32s, kLargeSide, kLargeSide, 0)
    VEK_CONVERT_CASE(32f8u, kLargeSide, kLargeSide, 0)
#undef VEK_CONVERT_CASE

    {
        const int step = kSide * 4 + kPadBytes;
        auto src = std::make_shared<std::vector<Vek32s>>(randomSamples<Vek32s>(size_t(step / 4) * kSide));
        auto dst = std::make_shared<std::vector<Vek32s>>(src->size());
        cases.push_back(
            {"vekiLShiftC_32s_C1R/3", "vekiLShiftC_32s_C1R", kSide * kSide, 8.0 * kSide * kSide, [=](int level) {
                 vek::vekTable_vekiLShiftC_32s_C1R[level](src->data(), step, 3, dst->data(), step, {kSide, kSide});
             }});
    }
    cases.push_back(inPlaceCase<Vek32s>(
        "vekiLShiftC_32s_C1IR", "vekiLShiftC_32s_C1IR/3",
        [](int level, Vek32s* p, int s, VekiSize r) { vek::vekTable_vekiLShiftC_32s_C1IR[level](3, p, s, r); }));
    cases.push_back(inPlaceCase<Vek16s>(
        "vekiRShiftC_16s_C1IR", "vekiRShiftC_16s_C1IR/3",
        [](int level, Vek16s* p, int s, VekiSize r) { vek::vekTable_vekiRShiftC_16s_C1IR[level](3, p, s, r); }));
    cases.push_back(inPlaceCase<Vek32s>(
        "vekiRShiftC_32s_C1IR", "vekiRShiftC_32s_C1IR/3",
        [](int level, Vek32s* p, int s, VekiSize r) { vek::vekTable_vekiRShiftC_32s_C1IR[level](3, p, s, r); }));
    cases.push_back(inPlaceCase<Vek16s>(
        "vekiMulC_16s_C1IRSfs", "vekiMulC_16s_C1IRSfs/sf:1",
        [](int level, Vek16s* p, int s, VekiSize r) { vek::vekTable_vekiMulC_16s_C1IRSfs[level](-2, p, s, r, 1); }));
    cases.push_back(inPlaceCase<Vek32f>(
        "vekiMulC_32f_C1IR", "vekiMulC_32f_C1IR",
        [](int level, Vek32f* p, int s, VekiSize r) { vek::vekTable_vekiMulC_32f_C1IR[level](-1.0f, p, s, r); }));
    cases.push_back(inPlaceCase<Vek32s>(
        "vekiComplement_32s_C1IR", "vekiComplement_32s_C1IR/12",
        [](int level, Vek32s* p, int s, VekiSize r) { vek::vekTable_vekiComplement_32s_C1IR[level](p, s, r, 12); }));
}

}  // namespace vekbench
