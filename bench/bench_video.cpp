// Benchmark cases of the video families: motion compensation of every
// block size in every prediction mode (one reference), the two-reference
// and difference forms of every size in their extreme modes, the block
// metrics in every mode and the MPEG-2 quantisers.  One call works one block of a
// cache-resident frame, so the time per iteration is the time per block.
#include <memory>
#include <string>

#include "bench_cases.h"
#include "bench_video.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kSide = VideoFrames::kSide;

// Outputs and residuals, kept for the program's lifetime.
struct Scratch {
    unsigned char dst[kSide * kSide] = {};
    short residual[16 * 16], diff[16 * 16], predictor[16 * 16];
    Vek32s result = 0;
    Vek16u sads[16];
    Scratch() {
        for (int i = 0; i < 256; ++i) residual[i] = static_cast<short>((i * 37) % 61 - 30);
    }
};
Scratch& scratch() {
    static Scratch s;
    return s;
}

std::string modeName(int mode) { return "/mode:" + std::to_string(mode); }

template <class Fn>
void addMc(std::vector<BenchCase>& cases, const char* name, const Fn* table, int w, int h) {
    for (int mode : {0, 4, 8, 12})
        cases.push_back({name + modeName(mode), name, w * h, 3.0 * w * h, [=](int level) {
                             Scratch& s = scratch();
                             table[level](videoFrames().refBlock(), kSide, s.residual, 32, s.dst, kSide, mode, 0);
                         }});
}
template <class Fn>
void addMcB(std::vector<BenchCase>& cases, const char* name, const Fn* table, int w, int h) {
    for (int mode : {0, 12})
        cases.push_back({name + modeName(mode), name, w * h, 4.0 * w * h, [=](int level) {
                             Scratch& s = scratch();
                             const VideoFrames& f = videoFrames();
                             table[level](f.refBlock(), kSide, mode, f.curBlock(), kSide, mode, s.residual, 32, s.dst,
                                          kSide, 1);
                         }});
}
template <class Fn>
void addDiff(std::vector<BenchCase>& cases, const char* name, const Fn* table, int w, int h) {
    for (int mode : {0, 12})
        cases.push_back({name + modeName(mode), name, w * h, 6.0 * w * h, [=](int level) {
                             Scratch& s = scratch();
                             const VideoFrames& f = videoFrames();
                             table[level](f.curBlock(), kSide, f.refBlock(), kSide, s.diff, 32, s.predictor, 32, mode,
                                          0);
                         }});
}
template <class Fn>
void addDiffB(std::vector<BenchCase>& cases, const char* name, const Fn* table, int w, int h) {
    for (int mode : {0, 12})
        cases.push_back({name + modeName(mode), name, w * h, 5.0 * w * h, [=](int level) {
                             Scratch& s = scratch();
                             const VideoFrames& f = videoFrames();
                             table[level](f.curBlock(), kSide, f.refBlock(), kSide, mode, f.curBlock() + 1, kSide, mode,
                                          s.diff, 32, 0);
                         }});
}

// A quantiser on a block that its own inverse keeps in range, call after call.
struct QuantBlock {
    short block[64];
    float reciprocals[64];
    short weights[64];
    QuantBlock() {
        for (int i = 0; i < 64; ++i) {
            block[i] = static_cast<short>((i * 97) % 401 - 200);
            weights[i] = static_cast<short>(16 + i % 20);
            reciprocals[i] = 1.0f / weights[i];
        }
    }
};

}  // namespace

VEK_BENCH_FAMILY(video) {
    using namespace vek;
#define VEK_MC_BENCH(size, w, h) addMc(cases, "vekiMC" #size "_8u_C1", vekTable_vekiMC##size##_8u_C1, w, h);
    VEK_MC_BENCH(16x16, 16, 16)
    VEK_MC_BENCH(16x8, 16, 8)
    VEK_MC_BENCH(16x4, 16, 4)
    VEK_MC_BENCH(8x16, 8, 16)
    VEK_MC_BENCH(8x8, 8, 8)
    VEK_MC_BENCH(8x4, 8, 4)
    VEK_MC_BENCH(4x8, 4, 8)
    VEK_MC_BENCH(4x4, 4, 4)
    VEK_MC_BENCH(4x2, 4, 2)
    VEK_MC_BENCH(2x4, 2, 4)
    VEK_MC_BENCH(2x2, 2, 2)
    VEK_MC_BENCH(16x8UV, 16, 8)
#undef VEK_MC_BENCH
#define VEK_MC_B_BENCH(size, w, h) addMcB(cases, "vekiMC" #size "_8u_C1", vekTable_vekiMC##size##_8u_C1, w, h);
    VEK_MC_B_BENCH(16x16B, 16, 16)
    VEK_MC_B_BENCH(16x8B, 16, 8)
    VEK_MC_B_BENCH(16x4B, 16, 4)
    VEK_MC_B_BENCH(8x16B, 8, 16)
    VEK_MC_B_BENCH(8x8B, 8, 8)
    VEK_MC_B_BENCH(8x4B, 8, 4)
    VEK_MC_B_BENCH(4x8B, 4, 8)
    VEK_MC_B_BENCH(4x4B, 4, 4)
    VEK_MC_B_BENCH(4x2B, 4, 2)
    VEK_MC_B_BENCH(2x4B, 2, 4)
    VEK_MC_B_BENCH(2x2B, 2, 2)
    VEK_MC_B_BENCH(16x8BUV, 16, 8)
#undef VEK_MC_B_BENCH
#define VEK_DIFF_BENCH(size, w, h) \
    addDiff(cases, "vekiGetDiff" #size "_8u16s_C1", vekTable_vekiGetDiff##size##_8u16s_C1, w, h);
    VEK_DIFF_BENCH(16x16, 16, 16)
    VEK_DIFF_BENCH(16x8, 16, 8)
    VEK_DIFF_BENCH(8x16, 8, 16)
    VEK_DIFF_BENCH(8x8, 8, 8)
    VEK_DIFF_BENCH(8x4, 8, 4)
    VEK_DIFF_BENCH(4x4, 4, 4)
#undef VEK_DIFF_BENCH
#define VEK_DIFF_B_BENCH(size, w, h) \
    addDiffB(cases, "vekiGetDiff" #size "B_8u16s_C1", vekTable_vekiGetDiff##size##B_8u16s_C1, w, h);
    VEK_DIFF_B_BENCH(16x16, 16, 16)
    VEK_DIFF_B_BENCH(16x8, 16, 8)
    VEK_DIFF_B_BENCH(8x16, 8, 16)
    VEK_DIFF_B_BENCH(8x8, 8, 8)
    VEK_DIFF_B_BENCH(8x4, 8, 4)
#undef VEK_DIFF_B_BENCH

    for (int mode : {0, 4, 8, 12})
        cases.push_back({"vekiSAD16x16_8u32s" + modeName(mode), "vekiSAD16x16_8u32s", 256, 512, [=](int level) {
                             const VideoFrames& f = videoFrames();
                             vekTable_vekiSAD16x16_8u32s[level](f.curBlock(), kSide, f.refBlock(), kSide,
                                                                &scratch().result, mode);
                         }});
    for (int mode : {0, 4, 8, 12})
        cases.push_back({"vekiSqrDiff16x16_8u32s" + modeName(mode), "vekiSqrDiff16x16_8u32s", 256, 512, [=](int level) {
                             const VideoFrames& f = videoFrames();
                             vekTable_vekiSqrDiff16x16_8u32s[level](f.curBlock(), kSide, f.refBlock(), kSide, mode,
                                                                    &scratch().result);
                         }});
    cases.push_back({"vekiSAD4x4_8u32s", "vekiSAD4x4_8u32s", 16, 32, [](int level) {
                         const VideoFrames& f = videoFrames();
                         vekTable_vekiSAD4x4_8u32s[level](f.curBlock(), kSide, f.refBlock(), kSide, &scratch().result,
                                                          0);
                     }});
    cases.push_back({"vekiSAD16x16Blocks8x8_8u16u", "vekiSAD16x16Blocks8x8_8u16u", 256, 512, [](int level) {
                         const VideoFrames& f = videoFrames();
                         vekTable_vekiSAD16x16Blocks8x8_8u16u[level](f.curBlock(), kSide, f.refBlock(), kSide,
                                                                     scratch().sads, 0);
                     }});
    cases.push_back({"vekiSAD16x16Blocks4x4_8u16u", "vekiSAD16x16Blocks4x4_8u16u", 256, 512, [](int level) {
                         const VideoFrames& f = videoFrames();
                         vekTable_vekiSAD16x16Blocks4x4_8u16u[level](f.curBlock(), kSide, f.refBlock(), kSide,
                                                                     scratch().sads, 0);
                     }});
    cases.push_back({"vekiSqrDiff16x16B_8u32s/mode:12", "vekiSqrDiff16x16B_8u32s", 256, 768, [](int level) {
                         const VideoFrames& f = videoFrames();
                         vekTable_vekiSqrDiff16x16B_8u32s[level](f.curBlock(), kSide, f.refBlock(), kSide, 12,
                                                                 f.refBlock() + 1, kSide, 12, &scratch().result);
                     }});
    cases.push_back({"vekiVariance16x16_8u32s", "vekiVariance16x16_8u32s", 256, 256, [](int level) {
                         vekTable_vekiVariance16x16_8u32s[level](videoFrames().curBlock(), kSide, &scratch().result);
                     }});

    // Forward then inverse, so the block keeps its range from call to call.
    auto q = std::make_shared<QuantBlock>();
    cases.push_back({"vekiQuant+Inv_MPEG2_16s_C1I", "vekiQuant_MPEG2_16s_C1I", 64, 256, [q](int level) {
                         Vek32s count;
                         vekTable_vekiQuant_MPEG2_16s_C1I[level](q->block, 3, q->reciprocals, &count);
                         vekTable_vekiQuantInv_MPEG2_16s_C1I[level](q->block, 3, q->weights);
                     }});
    cases.push_back({"vekiQuantIntra+InvIntra_MPEG2", "vekiQuantIntra_MPEG2_16s_C1I", 64, 256, [q](int level) {
                         Vek32s count;
                         vekTable_vekiQuantIntra_MPEG2_16s_C1I[level](q->block, 3, nullptr, &count);
                         vekTable_vekiQuantInvIntra_MPEG2_16s_C1I[level](q->block, 3, q->weights);
                     }});
    cases.push_back({"vekiQuant+Inv_MPEG2/flat", "vekiQuant_MPEG2_16s_C1I", 64, 256, [q](int level) {
                         Vek32s count;
                         vekTable_vekiQuant_MPEG2_16s_C1I[level](q->block, 3, nullptr, &count);
                         vekTable_vekiQuantInv_MPEG2_16s_C1I[level](q->block, 3, nullptr);
                     }});
}

}  // namespace vekbench
