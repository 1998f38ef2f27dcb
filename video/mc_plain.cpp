// Motion compensation and block differences: the plain reference.
//
// Every kernel walks its block pixel by pixel with the prediction of
// block_predict.h; the mode is a template parameter, so the tables of
// mc_exports.h pick a kernel and no pixel branches on the mode.
#include <stddef.h>
#include <stdint.h>

#include <array>
#include <utility>

#include "core/dispatch.h"
#include "image/image_common.h"

namespace vek::plain {
#include "video/block_predict.h"
#include "video/video_checks.h"

namespace {

template <int W, int H, int Dx, int Mode, int RC>
VekStatus mcBlock(const Vek8u* ref, int refStep, const Vek16s* residual, int residualStep, Vek8u* dst, int dstStep) {
    for (int y = 0; y < H; ++y) {
        const Vek8u* r = blockRow(ref, refStep, y);
        const Vek16s* e = blockRow(residual, residualStep, y);
        Vek8u* d = blockRow(dst, dstStep, y);
        for (int x = 0; x < W; ++x) d[x] = clampToByte(predictSample<Mode, Dx>(r, refStep, x, RC) + e[x]);
    }
    return StatusOk;
}

// The residual is doubled inside the average, so one rounding serves both.
template <int W, int H, int Dx, int ModeF, int ModeB, int RC>
VekStatus mcBlockB(const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep, const Vek16s* residual,
                   int residualStep, Vek8u* dst, int dstStep) {
    for (int y = 0; y < H; ++y) {
        const Vek8u* f = blockRow(refF, refFStep, y);
        const Vek8u* b = blockRow(refB, refBStep, y);
        const Vek16s* e = blockRow(residual, residualStep, y);
        Vek8u* d = blockRow(dst, dstStep, y);
        for (int x = 0; x < W; ++x) {
            const int pf = predictSample<ModeF, Dx>(f, refFStep, x, RC);
            const int pb = predictSample<ModeB, Dx>(b, refBStep, x, RC);
            d[x] = clampToByte((pf + pb + 2 * e[x] + 1) >> 1);
        }
    }
    return StatusOk;
}

template <int W, int H, int Mode, bool WithPredictor>
VekStatus diffBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16s* diff, int diffStep,
                    Vek16s* predictor, int predictorStep, int roundControl) {
    for (int y = 0; y < H; ++y) {
        const Vek8u* c = blockRow(cur, curStep, y);
        const Vek8u* r = blockRow(ref, refStep, y);
        Vek16s* d = blockRow(diff, diffStep, y);
        for (int x = 0; x < W; ++x) {
            const int p = predictSample<Mode, 1>(r, refStep, x, roundControl);
            d[x] = static_cast<Vek16s>(c[x] - p);
            if constexpr (WithPredictor) blockRow(predictor, predictorStep, y)[x] = static_cast<Vek16s>(p);
        }
    }
    return StatusOk;
}

// (2 cur - pF - pB) >> 1 rounds toward minus infinity.
template <int W, int H, int ModeF, int ModeB>
VekStatus diffBlockB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep,
                     Vek16s* diff, int diffStep, int roundControl) {
    for (int y = 0; y < H; ++y) {
        const Vek8u* c = blockRow(cur, curStep, y);
        const Vek8u* f = blockRow(refF, refFStep, y);
        const Vek8u* b = blockRow(refB, refBStep, y);
        Vek16s* d = blockRow(diff, diffStep, y);
        for (int x = 0; x < W; ++x) {
            const int pf = predictSample<ModeF, 1>(f, refFStep, x, roundControl);
            const int pb = predictSample<ModeB, 1>(b, refBStep, x, roundControl);
            d[x] = static_cast<Vek16s>((2 * c[x] - pf - pb) >> 1);
        }
    }
    return StatusOk;
}

}  // namespace

#include "video/mc_exports.h"

VEK_MC_WIDE_MEMBERS
VEK_MC_MEDIUM_MEMBERS
VEK_MC_NARROW_MEMBERS

}  // namespace vek::plain
