// Benchmark cases of the JPEG 2000 transforms.
//
// Every Row and Col pass of every type on a 512 x 512 tile (the forward
// reads the tile with its extension and writes two 256-wide or 256-high
// bands; the inverse the reverse), counted in samples of the tile, so the
// items per second are samples per second.  The two-dimensional 9/7 level
// runs on a 1024 x 1024 tile; rivals_jpeg2000.cpp times OpenJPEG's whole
// lossless encode of such a tile beside it, for scale.  The component
// transforms run in place on three 512 x 512 planes.
//
// The data are 12-bit samples; the transforms run on the same buffers call
// after call (the forward passes read what they never write).
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "bench_cases.h"
#include "bench_jpeg2000.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kTile = 512, kMargin = 8;  // the extension around each line

template <class T>
std::vector<T> samples12(size_t n) {
    uint32_t state = 2026;
    std::vector<T> v(n);
    for (T& x : v) {
        state = state * 1664525u + 1013904223u;
        x = static_cast<T>(int((state >> 8) & 0xFFF) - 2048);
    }
    return v;
}

// A tile of kTile x kTile samples with kMargin samples of extension around
// it, the bands, and the destination of an inverse.
template <class T>
struct TileBuffers {
    static constexpr int kStride = kTile + 2 * kMargin;
    std::vector<T> source = samples12<T>(size_t(kStride) * kStride), low, high, out;
    TileBuffers() : low(source), high(source), out(source) {}
    static int step() { return kStride * int(sizeof(T)); }
    static T* at(std::vector<T>& v) { return v.data() + size_t(kMargin) * kStride + kMargin; }
};

template <class Fn>
struct Sample;
template <class T>
struct Sample<VekStatus(VEK_CALL*)(const T*, int, T*, int, T*, int, VekiSize, Vek32u)> {
    using type = T;
    static constexpr bool kForward = true;
};
template <class T>
struct Sample<VekStatus(VEK_CALL*)(const T*, int, const T*, int, VekiSize, T*, int, Vek32u)> {
    using type = T;
    static constexpr bool kForward = false;
};

template <class Fn>
BenchCase passCase(const char* exportName, const Fn* table, bool rows) {
    using T = typename Sample<Fn>::type;
    auto b = std::make_shared<TileBuffers<T>>();
    const VekiSize bands = rows ? VekiSize{kTile / 2, kTile} : VekiSize{kTile, kTile / 2};
    std::function<void(int)> run;
    if constexpr (Sample<Fn>::kForward)
        run = [=](int level) {
            const int s = b->step();
            table[level](b->at(b->source), s, b->at(b->low), s, b->at(b->high), s, bands, 0);
        };
    else
        run = [=](int level) {
            const int s = b->step();
            table[level](b->at(b->low), s, b->at(b->high), s, bands, b->at(b->out), s, 0);
        };
    return {std::string(exportName) + "/512x512", exportName, kTile * kTile, 2.0 * kTile * kTile * sizeof(T), run};
}

// The tile, its four bands and the work buffer of the two-dimensional level.
template <class T>
struct LevelBuffers {
    std::vector<T> image = samples12<T>(size_t(kLevelSide) * kLevelSide);
    std::vector<T> bands = std::vector<T>(size_t(kLevelSide) * kLevelSide);
    std::vector<Vek8u> work = std::vector<Vek8u>(VEK_WT_D97_JPEG2K_BUFFER_SIZE(kLevelSide, kLevelSide, int(sizeof(T))));
};

template <class T, class Fwd, class Inv>
void levelCases(std::vector<BenchCase>& cases, const char* fwdName, const Fwd* fwd, const char* invName,
                const Inv* inv) {
    constexpr int n = kLevelSide;
    using Buffers = LevelBuffers<T>;
    auto b = std::make_shared<Buffers>();
    const VekiRect tile{0, 0, n, n};
    const int half = n / 2 * int(sizeof(T));
    auto band = [b](int k) { return b->bands.data() + size_t(k) * (n / 2) * (n / 2); };
    cases.push_back({std::string(fwdName) + "/1024x1024", fwdName, n * n, 2.0 * n * n * sizeof(T), [=](int level) {
                         T* out[4] = {band(0), band(1), band(2), band(3)};
                         const int steps[4] = {half, half, half, half};
                         fwd[level](b->image.data(), n * int(sizeof(T)), &tile, out, steps, b->work.data());
                     }});
    cases.push_back({std::string(invName) + "/1024x1024", invName, n * n, 2.0 * n * n * sizeof(T), [=](int level) {
                         const T* in[4] = {band(0), band(1), band(2), band(3)};
                         const int steps[4] = {half, half, half, half};
                         inv[level](in, steps, &tile, b->image.data(), n * int(sizeof(T)), b->work.data());
                     }});
}

template <class T, class Fn>
BenchCase planesCase(const char* exportName, const Fn* table) {
    auto planes = std::make_shared<std::vector<T>>(samples12<T>(size_t(3) * kTile * kTile));
    return {std::string(exportName) + "/512x512", exportName, kTile * kTile, 6.0 * kTile * kTile * sizeof(T),
            [=](int level) {
                T* p[3] = {planes->data(), planes->data() + kTile * kTile, planes->data() + 2 * kTile * kTile};
                table[level](p, kTile * int(sizeof(T)), VekiSize{kTile, kTile});
            }};
}

}  // namespace

VEK_BENCH_FAMILY(jpeg2000) {
#define VEK_WT_PASS_CASE(name, rows) cases.push_back(passCase(#name, vek::vekTable_##name, rows));
    VEK_WT_PASS_CASE(vekiWTFwdRow_B53_JPEG2K_16s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTFwdRow_B53_JPEG2K_32s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTFwdRow_D97_JPEG2K_16s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTFwdRow_D97_JPEG2K_32s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTFwdRow_D97_JPEG2K_32f_C1R, true)
    VEK_WT_PASS_CASE(vekiWTFwdCol_B53_JPEG2K_16s_C1R, false)
    VEK_WT_PASS_CASE(vekiWTFwdCol_B53_JPEG2K_32s_C1R, false)
    VEK_WT_PASS_CASE(vekiWTFwdCol_D97_JPEG2K_32f_C1R, false)
    VEK_WT_PASS_CASE(vekiWTInvRow_B53_JPEG2K_16s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTInvRow_B53_JPEG2K_32s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTInvRow_D97_JPEG2K_16s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTInvRow_D97_JPEG2K_32s_C1R, true)
    VEK_WT_PASS_CASE(vekiWTInvRow_D97_JPEG2K_32f_C1R, true)
    VEK_WT_PASS_CASE(vekiWTInvCol_B53_JPEG2K_16s_C1R, false)
    VEK_WT_PASS_CASE(vekiWTInvCol_B53_JPEG2K_32s_C1R, false)
    VEK_WT_PASS_CASE(vekiWTInvCol_D97_JPEG2K_32f_C1R, false)
#undef VEK_WT_PASS_CASE
    levelCases<Vek16s>(cases, "vekiWTFwd_D97_JPEG2K_16s_C1R", vek::vekTable_vekiWTFwd_D97_JPEG2K_16s_C1R,
                       "vekiWTInv_D97_JPEG2K_16s_C1R", vek::vekTable_vekiWTInv_D97_JPEG2K_16s_C1R);
    levelCases<Vek32s>(cases, "vekiWTFwd_D97_JPEG2K_32s_C1R", vek::vekTable_vekiWTFwd_D97_JPEG2K_32s_C1R,
                       "vekiWTInv_D97_JPEG2K_32s_C1R", vek::vekTable_vekiWTInv_D97_JPEG2K_32s_C1R);
    cases.push_back(planesCase<Vek32s>("vekiRCTFwd_JPEG2K_32s_P3IR", vek::vekTable_vekiRCTFwd_JPEG2K_32s_P3IR));
    cases.push_back(planesCase<Vek16s>("vekiICTFwd_JPEG2K_16s_P3IR", vek::vekTable_vekiICTFwd_JPEG2K_16s_P3IR));
    cases.push_back(planesCase<Vek32f>("vekiICTFwd_JPEG2K_32f_P3IR", vek::vekTable_vekiICTFwd_JPEG2K_32f_P3IR));
}

}  // namespace vekbench
