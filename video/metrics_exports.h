// The block-matching metric exports, written once for every level.
//
// Included inside a level's namespace after the level has defined its
// kernels over a 16x16 macroblock (or the 4x4 block):
//   sadBlock<Mode>(cur, curStep, ref, refStep, &sad)        sum of |cur - pred|, StatusOk
//   sad4x4(cur, curStep, ref, refStep)                      -> sum of |cur - ref|, 4x4
//   sadQuarters(cur, curStep, ref, refStep, Vek16u out[4])  the four 8x8 SADs
//   sadBlocks4x4(cur, curStep, ref, refStep, Vek16u out[16])  the sixteen 4x4 SADs
//   sqrDiffBlock<Mode>(cur, curStep, ref, refStep)          -> sum of (pred - cur)^2
//   sqrDiffBlockB<ModeF, ModeB>(cur, curStep, refF, refFStep, refB, refBStep)
//                                                           -> sum of (avg(predF, predB) - cur)^2
//   blockSums(cur, curStep, &sum, &sumOfSquares)            sums of x and x^2, 32-bit
// Mode is 0, 4, 8 or 12 and the half-sample averages round halves up.
// Sums are 32-bit two's-complement values (no block reaches 2^31).
#ifndef VEK_VIDEO_METRICS_EXPORTS_H
#define VEK_VIDEO_METRICS_EXPORTS_H

namespace {

using SqrDiffKernel = Vek32s (*)(const Vek8u*, int, const Vek8u*, int);
using SqrDiffBKernel = Vek32s (*)(const Vek8u*, int, const Vek8u*, int, const Vek8u*, int);

// The SAD's kernel by mcType >> 2, once the mode is known to be 0, 4, 8 or
// 12: a switch, so that the kernels are inlined behind one jump (the SAD
// is the hottest call of a motion search).
inline VekStatus sadByMode(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek32s* sad, int mcType) {
    if (mcType == 0) return sadBlock<0>(cur, curStep, ref, refStep, sad);  // the common case, tested first
    switch (mcType >> 2) {
    case 1: return sadBlock<4>(cur, curStep, ref, refStep, sad);
    case 2: return sadBlock<8>(cur, curStep, ref, refStep, sad);
    default: return sadBlock<12>(cur, curStep, ref, refStep, sad);
    }
}
// Indexed by sqrDiffEntry(mcType).
constexpr SqrDiffKernel kSqrDiffKernels[4] = {sqrDiffBlock<0>, sqrDiffBlock<4>, sqrDiffBlock<8>, sqrDiffBlock<12>};

// The one-reference squared difference compares the whole mode: 0, 4 and
// 8 have their own kernels, any other value takes the four-pixel average.
inline int sqrDiffEntry(int mcType) { return mcType == 0 ? 0 : mcType == 4 ? 1 : mcType == 8 ? 2 : 3; }

// Indexed by (modeF & 12) / 4 + (modeB & 12).
template <size_t... I>
constexpr std::array<SqrDiffBKernel, 16> sqrDiffBTable(std::index_sequence<I...>) {
    return {{sqrDiffBlockB<int(I & 3) * 4, int(I & 12)>...}};
}
constexpr std::array<SqrDiffBKernel, 16> kSqrDiffBKernels = sqrDiffBTable(std::make_index_sequence<16>{});

// s * s is a 32-bit two's-complement product (it wraps negative once s
// passes 46340), divided as a signed value, truncating toward zero.
inline Vek32s varianceFromSums(uint32_t sum, uint32_t sumOfSquares) {
    const int32_t square = static_cast<int32_t>(sum * sum);
    return static_cast<Vek32s>(sumOfSquares - static_cast<uint32_t>(square / 256));
}

}  // namespace

// clang-format off
#define VEK_SAD_16X16_MEMBER                                                                                    \
    VekStatus VEK_CALL vekiSAD16x16_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,       \
                                          Vek32s* pSAD, int mcType) {                                          \
        if (const VekStatus status = checkPointers(pSrc, pRef, pSAD)) return status;                           \
        if (const VekStatus status = checkSadMode(mcType)) return status;                                      \
        return sadByMode(pSrc, srcStep, pRef, refStep, pSAD, mcType);                                          \
    }

#define VEK_SAD_4X4_MEMBER                                                                                      \
    VekStatus VEK_CALL vekiSAD4x4_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,         \
                                        Vek32s* pSAD, int) {                                                   \
        if (const VekStatus status = checkPointers(pSrc, pRef, pSAD)) return status;                           \
        *pSAD = sad4x4(pSrc, srcStep, pRef, refStep);                                                           \
        return StatusOk;                                                                                        \
    }

#define VEK_SAD_BLOCKS_MEMBERS                                                                                  \
    VekStatus VEK_CALL vekiSAD16x16Blocks8x8_8u16u(const Vek8u* pSrc, int srcStep, const Vek8u* pRef,           \
                                                   int refStep, Vek16u* pDstSAD, int) {                        \
        if (const VekStatus status = checkPointers(pSrc, pRef, pDstSAD)) return status;                        \
        sadQuarters(pSrc, srcStep, pRef, refStep, pDstSAD);                                                     \
        return StatusOk;                                                                                        \
    }                                                                                                           \
    VekStatus VEK_CALL vekiSAD16x16Blocks4x4_8u16u(const Vek8u* pSrc, int srcStep, const Vek8u* pRef,           \
                                                   int refStep, Vek16u* pDstSAD, int) {                        \
        if (const VekStatus status = checkPointers(pSrc, pRef, pDstSAD)) return status;                        \
        sadBlocks4x4(pSrc, srcStep, pRef, refStep, pDstSAD);                                                    \
        return StatusOk;                                                                                        \
    }

#define VEK_SQR_DIFF_MEMBERS                                                                                    \
    VekStatus VEK_CALL vekiSqrDiff16x16_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRef, int refStep,   \
                                              int mcType, Vek32s* pSqrDiff) {                                  \
        if (const VekStatus status = checkPointers(pSrc, pRef, pSqrDiff)) return status;                       \
        *pSqrDiff = kSqrDiffKernels[sqrDiffEntry(mcType)](pSrc, srcStep, pRef, refStep);                        \
        return StatusOk;                                                                                        \
    }                                                                                                           \
    VekStatus VEK_CALL vekiSqrDiff16x16B_8u32s(const Vek8u* pSrc, int srcStep, const Vek8u* pRefF, int refFStep, \
                                               int mcTypeF, const Vek8u* pRefB, int refBStep, int mcTypeB,      \
                                               Vek32s* pSqrDiff) {                                              \
        if (const VekStatus status = checkPointers(pSrc, pRefF, pRefB, pSqrDiff)) return status;               \
        *pSqrDiff = kSqrDiffBKernels[(mcTypeF & 12) / 4 + (mcTypeB & 12)](pSrc, srcStep, pRefF, refFStep, pRefB, \
                                                                          refBStep);                           \
        return StatusOk;                                                                                        \
    }

#define VEK_VARIANCE_MEMBER                                                                                     \
    VekStatus VEK_CALL vekiVariance16x16_8u32s(const Vek8u* pSrc, int srcStep, Vek32s* pVar) {                  \
        if (const VekStatus status = checkPointers(pSrc, pVar)) return status;                                 \
        uint32_t sum, sumOfSquares;                                                                             \
        blockSums(pSrc, srcStep, &sum, &sumOfSquares);                                                          \
        *pVar = varianceFromSums(sum, sumOfSquares);                                                            \
        return StatusOk;                                                                                        \
    }
// clang-format on

#endif
