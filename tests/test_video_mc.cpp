// Motion compensation and block differences: every size against level 0
// (and level 0 against the prediction as the rounded mean of its taps) in
// every mode and rounding, with references that end exactly where the
// mode stops reading; then the worked cases and the entry checks.
#include "video_blocks.h"

namespace vektest {
namespace {

using namespace vek;

std::string describe(int w, int h, int mode, int rc) {
    return std::to_string(w) + "x" + std::to_string(h) + " mode " + std::to_string(mode) + " rc " + std::to_string(rc);
}

// A rounding control with bits above bit 0 now and then: only bit 0 counts.
int roundControlArgument(int rc) { return rc + (rng()() % 4 == 0 ? 2 * static_cast<int>(rng()() % 5) - 4 : 0); }

int clampByte(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

// One reference (B = false) or two: dst = clamp(p + e) or clamp((pF + pB + 2e + 1) >> 1).
template <bool B, class Fn>
void runMc(const Fn* table, int w, int h, int dx) {
    for (int round = 0; round < rounds(48); ++round) {
        const int modeF = roundMode(round), modeB = roundMode(round + rng()() % 4), rc = roundControlOf(round);
        const int rcArg = roundControlArgument(rc);
        InputBlock<Vek8u> refF = referenceFor(w, h, modeF, dx), refB = referenceFor(w, h, modeB, dx);
        InputBlock<Vek16s> residual(w, h, randomBlockLayout(), [](int, int) {
            return rng()() % 2 ? randomValue<Vek16s>() : static_cast<Vek16s>(static_cast<int>(rng()() % 601) - 300);
        });
        OutputBlock<Vek8u> dst(w, h, randomBlockLayout());
        const std::string what = describe(w, h, modeF, rcArg) + (B ? " modeB " + std::to_string(modeB) : "");
        compareLevels(
            dst.memory, dst.initial,
            [&](int level) {
                if constexpr (B)
                    return table[level](refF.origin(), refF.step(), modeF, refB.origin(), refB.step(), modeB,
                                        residual.origin(), residual.step(), dst.origin(), dst.step(), rcArg);
                else
                    return table[level](refF.origin(), refF.step(), residual.origin(), residual.step(), dst.origin(),
                                        dst.step(), modeF, rcArg);
            },
            what);
        if (::testing::Test::HasFatalFailure()) return;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int pf = referencePrediction(refF, x, y, modeF, rc, dx), e = residual.at(x, y);
                const int want = B ? clampByte((pf + referencePrediction(refB, x, y, modeB, rc, dx) + 2 * e + 1) >> 1)
                                   : clampByte(pf + e);
                ASSERT_EQ(dst.at(x, y), want) << "pixel " << x << "," << y << "; " << what;
            }
    }
}

// Difference with a predictor (sometimes), or bidirectional.  The 4x4
// difference ignores the mode, the rounding and the predictor.
template <bool B, class Fn>
void runDiff(const Fn* table, int w, int h, bool fullSampleOnly = false) {
    for (int round = 0; round < rounds(48); ++round) {
        const int modeF = roundMode(round), modeB = roundMode(round + rng()() % 4), rc = roundControlOf(round);
        const int rcArg = roundControlArgument(rc);
        InputBlock<Vek8u> cur = randomPixelBlock(w, h);
        InputBlock<Vek8u> refF = fullSampleOnly ? randomPixelBlock(w, h) : referenceFor(w, h, modeF, 1);
        InputBlock<Vek8u> refB = referenceFor(w, h, modeB, 1);
        // The difference and the predictor share one guarded array.
        const BlockLayout layout = randomBlockLayout();
        OutputBlock<Vek16s> out(w, 2 * h + 1, layout);
        const bool withPredictor = !B && rng()() % 3 != 0;
        const int diffRow = 0, predictorRow = h + 1;  // rows of the output block
        Vek16s* diff = out.origin();
        Vek16s* predictor = out.origin() + (layout.bottomUp ? -1 : 1) * predictorRow * (w + layout.padding);
        const std::string what = describe(w, h, modeF, rcArg) + (B ? " modeB " + std::to_string(modeB) : "") +
                                 (withPredictor ? " with predictor" : "");
        compareLevels(
            out.memory, out.initial,
            [&](int level) {
                if constexpr (B)
                    return table[level](cur.origin(), cur.step(), refF.origin(), refF.step(), modeF, refB.origin(),
                                        refB.step(), modeB, diff, out.step(), rcArg);
                else
                    return table[level](cur.origin(), cur.step(), refF.origin(), refF.step(), diff, out.step(),
                                        withPredictor ? predictor : nullptr, out.step(), modeF, rcArg);
            },
            what);
        if (::testing::Test::HasFatalFailure()) return;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int pf = fullSampleOnly ? refF.at(x, y) : referencePrediction(refF, x, y, modeF, rc, 1);
                const int c = cur.at(x, y);
                const int want = B ? (2 * c - pf - referencePrediction(refB, x, y, modeB, rc, 1)) >> 1 : c - pf;
                ASSERT_EQ(out.at(x, diffRow + y), want) << "pixel " << x << "," << y << "; " << what;
                if (withPredictor && !fullSampleOnly) {
                    ASSERT_EQ(out.at(x, predictorRow + y), pf) << what;
                }
            }
        if (fullSampleOnly) {  // never a predictor
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    ASSERT_EQ(out.at(x, predictorRow + y),
                              out.initial[blockIndex(x, predictorRow + y, w, 2 * h + 1, layout)]);
                }
        }
    }
}

#define VEK_MC_CASES(size, w, h)                                                                       \
    VEK_DIFF_CASE(vekiMC##size##_8u_C1, [] { runMc<false>(vekTable_vekiMC##size##_8u_C1, w, h, 1); }); \
    VEK_DIFF_CASE(vekiMC##size##B_8u_C1, [] { runMc<true>(vekTable_vekiMC##size##B_8u_C1, w, h, 1); })
VEK_MC_CASES(16x16, 16, 16);
VEK_MC_CASES(16x8, 16, 8);
VEK_MC_CASES(16x4, 16, 4);
VEK_MC_CASES(8x16, 8, 16);
VEK_MC_CASES(8x8, 8, 8);
VEK_MC_CASES(8x4, 8, 4);
VEK_MC_CASES(4x8, 4, 8);
VEK_MC_CASES(4x4, 4, 4);
VEK_MC_CASES(4x2, 4, 2);
VEK_MC_CASES(2x4, 2, 4);
VEK_MC_CASES(2x2, 2, 2);
VEK_DIFF_CASE(vekiMC16x8UV_8u_C1, [] { runMc<false>(vekTable_vekiMC16x8UV_8u_C1, 16, 8, 2); });
VEK_DIFF_CASE(vekiMC16x8BUV_8u_C1, [] { runMc<true>(vekTable_vekiMC16x8BUV_8u_C1, 16, 8, 2); });

#define VEK_GET_DIFF_CASES(size, w, h)                                                                                \
    VEK_DIFF_CASE(vekiGetDiff##size##_8u16s_C1, [] { runDiff<false>(vekTable_vekiGetDiff##size##_8u16s_C1, w, h); }); \
    VEK_DIFF_CASE(vekiGetDiff##size##B_8u16s_C1, [] { runDiff<true>(vekTable_vekiGetDiff##size##B_8u16s_C1, w, h); })
VEK_GET_DIFF_CASES(16x16, 16, 16);
VEK_GET_DIFF_CASES(16x8, 16, 8);
VEK_GET_DIFF_CASES(8x16, 8, 16);
VEK_GET_DIFF_CASES(8x8, 8, 8);
VEK_GET_DIFF_CASES(8x4, 8, 4);
VEK_DIFF_CASE(vekiGetDiff4x4_8u16s_C1, [] { runDiff<false>(vekTable_vekiGetDiff4x4_8u16s_C1, 4, 4, true); });

// ---- worked cases and entry checks, on every level ------------------------------

TEST(VideoMcBehaviour, WorkedCases) {
    onEveryLevel([](int level) {
        Vek8u ref[17 * 17], cur[16 * 16], dst[16 * 16];
        Vek16s residual[16 * 16] = {}, diff[16 * 16];
        memset(ref, 255, sizeof ref);
        // Mode 12 with rounding control 1 on a flat 255 block: (4 * 255 + 1) >> 2.
        EXPECT_EQ(vekTable_vekiMC16x16_8u_C1[level](ref, 17, residual, 32, dst, 16, 12, 1), StatusOk);
        EXPECT_EQ(dst[255], 255);
        // Residuals of -300 and +300 clamp to 0 and 255.
        memset(ref, 100, sizeof ref);
        residual[0] = -300, residual[1] = 300;
        EXPECT_EQ(vekTable_vekiMC16x16_8u_C1[level](ref, 17, residual, 32, dst, 16, 0, 0), StatusOk);
        EXPECT_EQ(dst[0], 0);
        EXPECT_EQ(dst[1], 255);
        // Modes 13 and 16 act as 12 and 0: ref rows of 0 and 2 give 1 (mode 4, 12) or 0 (0, 8).
        for (int i = 0; i < 17 * 17; ++i) ref[i] = static_cast<Vek8u>((i / 17) % 2 * 2);
        memset(residual, 0, sizeof residual);
        for (int mode : {13, 16, -4}) {
            EXPECT_EQ(vekTable_vekiMC8x8_8u_C1[level](ref, 17, residual, 16, dst, 8, mode, 0), StatusOk);
            EXPECT_EQ(dst[0], (mode & 4) ? 1 : 0) << "mode " << mode;
        }
        // Two references of 10 and 11 average to 11; the difference from 10 is -1.
        Vek8u f[9 * 9], b[9 * 9];
        memset(f, 10, sizeof f);
        memset(b, 11, sizeof b);
        memset(cur, 10, sizeof cur);
        EXPECT_EQ(vekTable_vekiMC8x8B_8u_C1[level](f, 9, 0, b, 9, 0, residual, 16, dst, 8, 0), StatusOk);
        EXPECT_EQ(dst[63], 11);
        EXPECT_EQ(vekTable_vekiGetDiff8x8B_8u16s_C1[level](cur, 16, f, 9, 0, b, 9, 0, diff, 16, 0), StatusOk);
        EXPECT_EQ(diff[63], -1);
    });
}

TEST(VideoMcEntry, NullPointersAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek8u ref[17 * 17] = {}, dst[16 * 16];
        Vek16s residual[16 * 16] = {}, diff[16 * 16];
        memset(dst, kGuard, sizeof dst);
        memset(diff, kGuard, sizeof diff);
        EXPECT_EQ(vekTable_vekiMC16x16_8u_C1[level](nullptr, 17, residual, 32, dst, 16, 0, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiMC16x16_8u_C1[level](ref, 17, nullptr, 32, dst, 16, 0, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiMC16x16_8u_C1[level](ref, 17, residual, 32, nullptr, 16, 0, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiMC4x4B_8u_C1[level](ref, 17, 0, nullptr, 17, 0, residual, 8, dst, 4, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiMC4x4B_8u_C1[level](nullptr, 17, 0, ref, 17, 0, residual, 8, dst, 4, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiMC2x2B_8u_C1[level](ref, 17, 0, ref, 17, 0, nullptr, 4, dst, 2, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiGetDiff8x8_8u16s_C1[level](nullptr, 16, ref, 17, diff, 16, diff, 16, 0, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiGetDiff8x8_8u16s_C1[level](ref, 16, nullptr, 17, diff, 16, diff, 16, 0, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiGetDiff4x4_8u16s_C1[level](ref, 16, ref, 17, nullptr, 16, diff, 16, 0, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiGetDiff8x4B_8u16s_C1[level](ref, 16, ref, 17, 0, nullptr, 17, 0, diff, 16, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiGetDiff8x4B_8u16s_C1[level](ref, 16, ref, 17, 0, ref, 17, 0, nullptr, 16, 0),
                  StatusNullPointer);
        for (Vek8u v : dst) ASSERT_EQ(v, kGuard);
        for (size_t i = 0; i < sizeof diff; ++i) ASSERT_EQ(reinterpret_cast<Vek8u*>(diff)[i], kGuard);
        // A null predictor is allowed.
        EXPECT_EQ(vekTable_vekiGetDiff16x16_8u16s_C1[level](ref, 16, ref, 17, diff, 32, nullptr, 0, 12, 0), StatusOk);
    });
}

}  // namespace
}  // namespace vektest
