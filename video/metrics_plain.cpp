// Block-matching metrics: the plain reference.
//
// The predictions are those of motion compensation with the rounding
// control 0 (halves round up).  The two-reference squared difference forms
// each prediction as the four-sample sum of the mode's neighbours plus 2,
// shifted right by 2, which is the same thing.
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

// f(x, y) summed over the 16x16 block.
template <class F>
inline Vek32s sumOver16x16(F f) {
    uint32_t sum = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) sum += static_cast<uint32_t>(f(x, y));
    return static_cast<Vek32s>(sum);
}

template <int Mode>
VekStatus sadBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek32s* sad) {
    *sad = sumOver16x16([=](int x, int y) {
        const int d = blockRow(cur, curStep, y)[x] - predictSample<Mode, 1>(blockRow(ref, refStep, y), refStep, x, 0);
        return d < 0 ? -d : d;
    });
    return StatusOk;
}

inline int absDiff(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, int x, int y) {
    const int d = blockRow(cur, curStep, y)[x] - blockRow(ref, refStep, y)[x];
    return d < 0 ? -d : d;
}

Vek32s sad4x4(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    int sum = 0;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) sum += absDiff(cur, curStep, ref, refStep, x, y);
    return sum;
}

void sadQuarters(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16u* out) {
    for (int i = 0; i < 4; ++i) out[i] = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            out[2 * (y >= 8) + (x >= 8)] += static_cast<Vek16u>(absDiff(cur, curStep, ref, refStep, x, y));
}

void sadBlocks4x4(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16u* out) {
    for (int i = 0; i < 16; ++i) out[i] = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            out[4 * (y / 4) + x / 4] += static_cast<Vek16u>(absDiff(cur, curStep, ref, refStep, x, y));
}

template <int Mode>
Vek32s sqrDiffBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    return sumOver16x16([=](int x, int y) {
        const int d = predictSample<Mode, 1>(blockRow(ref, refStep, y), refStep, x, 0) - blockRow(cur, curStep, y)[x];
        return d * d;
    });
}

template <int ModeF, int ModeB>
Vek32s sqrDiffBlockB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep) {
    return sumOver16x16([=](int x, int y) {
        const int pf = predictSample<ModeF, 1>(blockRow(refF, refFStep, y), refFStep, x, 0);
        const int pb = predictSample<ModeB, 1>(blockRow(refB, refBStep, y), refBStep, x, 0);
        const int d = ((pf + pb + 1) >> 1) - blockRow(cur, curStep, y)[x];
        return d * d;
    });
}

void blockSums(const Vek8u* cur, int curStep, uint32_t* sum, uint32_t* sumOfSquares) {
    uint32_t s = 0, q = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const uint32_t v = blockRow(cur, curStep, y)[x];
            s += v;
            q += v * v;
        }
    *sum = s;
    *sumOfSquares = q;
}

}  // namespace

#include "video/metrics_exports.h"

VEK_SAD_16X16_MEMBER
VEK_SAD_4X4_MEMBER
VEK_SAD_BLOCKS_MEMBERS
VEK_SQR_DIFF_MEMBERS
VEK_VARIANCE_MEMBER

}  // namespace vek::plain
