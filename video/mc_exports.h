// The motion-compensation and block-difference exports, written once for
// every level.
//
// Included inside a level's namespace after the level has defined its
// block kernels (templates on the block shape and the prediction modes),
// each returning StatusOk:
//   mcBlock<W, H, Dx, Mode, RC>(ref, refStep, residual, residualStep, dst, dstStep)
//   mcBlockB<W, H, Dx, ModeF, ModeB, RC>(refF, refFStep, refB, refBStep, residual, residualStep,
//                                        dst, dstStep)
//   diffBlock<W, H, Mode, WithPredictor>(cur, curStep, ref, refStep, diff, diffStep,
//                                        predictor, predictorStep, roundControl)
//   diffBlockB<W, H, ModeF, ModeB>(cur, curStep, refF, refFStep, refB, refBStep, diff, diffStep,
//                                  roundControl)
// W x H is the block, Dx the distance in bytes to a sample's horizontal
// neighbour (2 in the interleaved chroma forms), Mode one of 0, 4, 8, 12
// and RC or roundControl 0 or 1.
//
// A mode reaches its kernel through a table indexed by the mode bits, so
// no kernel branches on the mode.  The motion-compensation tables index
// the rounding control too, so their kernels are built for it (full-sample
// modes, which have no rounding, name one kernel twice); the difference
// kernels are given it.  The exports end in a jump to the kernel, which
// returns their status, so a small block pays for no more than the checks
// and the lookup.  The group
// macros at the end say which exports a level defines: "wide" blocks fill
// a 64-byte vector with whole rows, "medium" ones 32 bytes, "narrow" ones
// at most 16.
#ifndef VEK_VIDEO_MC_EXPORTS_H
#define VEK_VIDEO_MC_EXPORTS_H

// The including file has included <array> and <utility> (this header is
// read inside a namespace).
namespace {

using McKernel = VekStatus (*)(const Vek8u*, int, const Vek16s*, int, Vek8u*, int);
using McBKernel = VekStatus (*)(const Vek8u*, int, const Vek8u*, int, const Vek16s*, int, Vek8u*, int);
using DiffKernel = VekStatus (*)(const Vek8u*, int, const Vek8u*, int, Vek16s*, int, Vek16s*, int, int);
using DiffBKernel = VekStatus (*)(const Vek8u*, int, const Vek8u*, int, const Vek8u*, int, Vek16s*, int, int);

// The rounding control a kernel is built for: none at full sample.
constexpr int roundingOf(size_t entry, int modes) { return modes == 0 ? 0 : int(entry & 1); }

// One reference: entry (mode & 12) / 2 + (roundControl & 1).
template <int W, int H, int Dx, size_t... I>
constexpr std::array<McKernel, 8> mcTable(std::index_sequence<I...>) {
    return {{mcBlock<W, H, Dx, int(I / 2) * 4, roundingOf(I, int(I / 2))>...}};
}
// Two references: entry (modeF & 12) / 2 + 2 * (modeB & 12) + (roundControl & 1).
template <int W, int H, int Dx, size_t... I>
constexpr std::array<McBKernel, 32> mcBTable(std::index_sequence<I...>) {
    return {{mcBlockB<W, H, Dx, int((I >> 1) & 3) * 4, int(I >> 3) * 4, roundingOf(I, int(I >> 1))>...}};
}
// Difference: entry (mode & 12) + (predictor wanted); the entries with
// bit 1 set are never indexed.
template <int W, int H, size_t... I>
constexpr std::array<DiffKernel, 16> diffTable(std::index_sequence<I...>) {
    return {{diffBlock<W, H, int(I & 12), (I & 1) != 0>...}};
}
// Bidirectional difference: entry (modeF & 12) / 4 + (modeB & 12).
template <int W, int H, size_t... I>
constexpr std::array<DiffBKernel, 16> diffBTable(std::index_sequence<I...>) {
    return {{diffBlockB<W, H, int(I & 3) * 4, int(I & 12)>...}};
}

template <int W, int H, int Dx>
constexpr std::array<McKernel, 8> kMcKernels = mcTable<W, H, Dx>(std::make_index_sequence<8>{});
template <int W, int H, int Dx>
constexpr std::array<McBKernel, 32> kMcBKernels = mcBTable<W, H, Dx>(std::make_index_sequence<32>{});
template <int W, int H>
constexpr std::array<DiffKernel, 16> kDiffKernels = diffTable<W, H>(std::make_index_sequence<16>{});
template <int W, int H>
constexpr std::array<DiffBKernel, 16> kDiffBKernels = diffBTable<W, H>(std::make_index_sequence<16>{});

}  // namespace

#define VEK_MC_EXPORT(name, W, H, Dx)                                                                              \
    VekStatus VEK_CALL name(const Vek8u* pSrcRef, int srcRefStep, const Vek16s* pSrcResidual, int srcResidualStep, \
                            Vek8u* pDst, int dstStep, int mcType, int roundControl) {                              \
        if (const VekStatus status = checkPointers(pSrcRef, pSrcResidual, pDst)) return status;                    \
        return kMcKernels<W, H, Dx>[(mcType & 12) / 2 + (roundControl & 1)](pSrcRef, srcRefStep, pSrcResidual,     \
                                                                            srcResidualStep, pDst, dstStep);       \
    }

#define VEK_MC_B_EXPORT(name, W, H, Dx)                                                                    \
    VekStatus VEK_CALL name(const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, const Vek8u* pSrcRefB,    \
                            int srcRefBStep, int mcTypeB, const Vek16s* pSrcResidual, int srcResidualStep, \
                            Vek8u* pDst, int dstStep, int roundControl) {                                  \
        if (const VekStatus status = checkPointers(pSrcRefF, pSrcRefB, pSrcResidual, pDst)) return status; \
        return kMcBKernels<W, H, Dx>[(mcTypeF & 12) / 2 + 2 * (mcTypeB & 12) + (roundControl & 1)](        \
            pSrcRefF, srcRefFStep, pSrcRefB, srcRefBStep, pSrcResidual, srcResidualStep, pDst, dstStep);   \
    }

#define VEK_DIFF_EXPORT(name, W, H)                                                                           \
    VekStatus VEK_CALL name(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep,       \
                            Vek16s* pDstDiff, int dstDiffStep, Vek16s* pDstPredictor, int dstPredictorStep,   \
                            int mcType, int roundControl) {                                                   \
        if (const VekStatus status = checkPointers(pSrcCur, pSrcRef, pDstDiff)) return status;                \
        return kDiffKernels<W, H>[(mcType & 12) + (pDstPredictor != nullptr)](                                \
            pSrcCur, srcCurStep, pSrcRef, srcRefStep, pDstDiff, dstDiffStep, pDstPredictor, dstPredictorStep, \
            roundControl & 1);                                                                                \
    }

// The 4x4 difference is taken at the full-sample position whatever the
// mode, and never stores a predictor.
#define VEK_DIFF_4X4_EXPORT(name)                                                                                     \
    VekStatus VEK_CALL name(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRef, int srcRefStep,               \
                            Vek16s* pDstDiff, int dstDiffStep, Vek16s*, int, int, int) {                              \
        if (const VekStatus status = checkPointers(pSrcCur, pSrcRef, pDstDiff)) return status;                        \
        return diffBlock<4, 4, 0, false>(pSrcCur, srcCurStep, pSrcRef, srcRefStep, pDstDiff, dstDiffStep, nullptr, 0, \
                                         0);                                                                          \
    }

#define VEK_DIFF_B_EXPORT(name, W, H)                                                                                  \
    VekStatus VEK_CALL name(const Vek8u* pSrcCur, int srcCurStep, const Vek8u* pSrcRefF, int srcRefFStep, int mcTypeF, \
                            const Vek8u* pSrcRefB, int srcRefBStep, int mcTypeB, Vek16s* pDstDiff, int dstDiffStep,    \
                            int roundControl) {                                                                        \
        if (const VekStatus status = checkPointers(pSrcCur, pSrcRefF, pSrcRefB, pDstDiff)) return status;              \
        return kDiffBKernels<W, H>[(mcTypeF & 12) / 4 + (mcTypeB & 12)](pSrcCur, srcCurStep, pSrcRefF, srcRefFStep,    \
                                                                        pSrcRefB, srcRefBStep, pDstDiff, dstDiffStep,  \
                                                                        roundControl & 1);                             \
    }

// Blocks whose rows fill 64 bytes or more.
#define VEK_MC_WIDE_MEMBERS                               \
    VEK_MC_EXPORT(vekiMC16x16_8u_C1, 16, 16, 1)           \
    VEK_MC_EXPORT(vekiMC16x8_8u_C1, 16, 8, 1)             \
    VEK_MC_EXPORT(vekiMC16x4_8u_C1, 16, 4, 1)             \
    VEK_MC_EXPORT(vekiMC8x16_8u_C1, 8, 16, 1)             \
    VEK_MC_EXPORT(vekiMC8x8_8u_C1, 8, 8, 1)               \
    VEK_MC_EXPORT(vekiMC16x8UV_8u_C1, 16, 8, 2)           \
    VEK_MC_B_EXPORT(vekiMC16x16B_8u_C1, 16, 16, 1)        \
    VEK_MC_B_EXPORT(vekiMC16x8B_8u_C1, 16, 8, 1)          \
    VEK_MC_B_EXPORT(vekiMC16x4B_8u_C1, 16, 4, 1)          \
    VEK_MC_B_EXPORT(vekiMC8x16B_8u_C1, 8, 16, 1)          \
    VEK_MC_B_EXPORT(vekiMC8x8B_8u_C1, 8, 8, 1)            \
    VEK_MC_B_EXPORT(vekiMC16x8BUV_8u_C1, 16, 8, 2)        \
    VEK_DIFF_EXPORT(vekiGetDiff16x16_8u16s_C1, 16, 16)    \
    VEK_DIFF_EXPORT(vekiGetDiff16x8_8u16s_C1, 16, 8)      \
    VEK_DIFF_EXPORT(vekiGetDiff8x16_8u16s_C1, 8, 16)      \
    VEK_DIFF_EXPORT(vekiGetDiff8x8_8u16s_C1, 8, 8)        \
    VEK_DIFF_B_EXPORT(vekiGetDiff16x16B_8u16s_C1, 16, 16) \
    VEK_DIFF_B_EXPORT(vekiGetDiff16x8B_8u16s_C1, 16, 8)   \
    VEK_DIFF_B_EXPORT(vekiGetDiff8x16B_8u16s_C1, 8, 16)   \
    VEK_DIFF_B_EXPORT(vekiGetDiff8x8B_8u16s_C1, 8, 8)

// Blocks of 32 bytes.
#define VEK_MC_MEDIUM_MEMBERS                      \
    VEK_MC_EXPORT(vekiMC8x4_8u_C1, 8, 4, 1)        \
    VEK_MC_EXPORT(vekiMC4x8_8u_C1, 4, 8, 1)        \
    VEK_MC_B_EXPORT(vekiMC8x4B_8u_C1, 8, 4, 1)     \
    VEK_MC_B_EXPORT(vekiMC4x8B_8u_C1, 4, 8, 1)     \
    VEK_DIFF_EXPORT(vekiGetDiff8x4_8u16s_C1, 8, 4) \
    VEK_DIFF_B_EXPORT(vekiGetDiff8x4B_8u16s_C1, 8, 4)

// Blocks of 16 bytes or fewer.
#define VEK_MC_NARROW_MEMBERS                  \
    VEK_MC_EXPORT(vekiMC4x4_8u_C1, 4, 4, 1)    \
    VEK_MC_EXPORT(vekiMC4x2_8u_C1, 4, 2, 1)    \
    VEK_MC_EXPORT(vekiMC2x4_8u_C1, 2, 4, 1)    \
    VEK_MC_EXPORT(vekiMC2x2_8u_C1, 2, 2, 1)    \
    VEK_MC_B_EXPORT(vekiMC4x4B_8u_C1, 4, 4, 1) \
    VEK_MC_B_EXPORT(vekiMC4x2B_8u_C1, 4, 2, 1) \
    VEK_MC_B_EXPORT(vekiMC2x4B_8u_C1, 2, 4, 1) \
    VEK_MC_B_EXPORT(vekiMC2x2B_8u_C1, 2, 2, 1) \
    VEK_DIFF_4X4_EXPORT(vekiGetDiff4x4_8u16s_C1)

#endif
