// Motion compensation and block differences for the SIMD levels.
//
// Each kernel works its block a group of rows at a time (block_simd.h):
// the prediction in bytes, then 16-bit lanes for the residual or the
// difference.  The sums need no wider lanes:
//   one reference:   clamp(p + e): saturating 16-bit add, then packus;
//   two references:  (pF + pB + 2e + 1) >> 1 = pavgb(pF, pB) + e, likewise;
//   difference B:    (2c - pF - pB) >> 1 = c - pavgb(pF, pB).
//
// Included inside a level's namespace after block_simd.h; internal linkage.
#ifndef VEK_VIDEO_MC_SIMD_H
#define VEK_VIDEO_MC_SIMD_H

namespace {

template <class T>
inline const Vek8u* bytesOf(const T* p) {
    return reinterpret_cast<const Vek8u*>(p);
}
template <class T>
inline Vek8u* bytesOf(T* p) {
    return reinterpret_cast<Vek8u*>(p);
}

// The 16-bit samples of a group of Rows rows of W, as the two vectors that
// widenLo and widenHi of the group's bytes give (hi unused when it fits in lo).
template <class L, int W, int Rows>
struct Words {
    static constexpr int kBytes = 4 * W * Rows / 2, kVector = sizeof(typename L::V);
    static void load(const Vek8u* base, ptrdiff_t step, typename L::V& lo, typename L::V& hi) {
        lo = L::template gather<2 * W, 0, minOf(kVector, kBytes)>(base, step);
        if constexpr (kBytes > kVector)
            hi = L::template gather<2 * W, kVector, kBytes - kVector>(base, step);
        else
            hi = L::zero();
    }
    static void store(Vek8u* base, ptrdiff_t step, typename L::V lo, typename L::V hi) {
        L::template scatter<2 * W, 0, minOf(kVector, kBytes)>(base, step, lo);
        if constexpr (kBytes > kVector) L::template scatter<2 * W, kVector, kBytes - kVector>(base, step, hi);
    }
};

// dst = clamp(p + residual) for a group of rows.
template <class L, int W, int Rows>
inline void addResidual(typename L::V p, const Vek16s* residual, int residualStep, Vek8u* dst, int dstStep) {
    typename L::V lo, hi;
    Words<L, W, Rows>::load(bytesOf(residual), residualStep, lo, hi);
    const typename L::V sum = L::packUnsigned(L::adds16(L::widenLo(p), lo), L::adds16(L::widenHi(p), hi));
    L::template scatter<W, 0, W * Rows>(dst, dstStep, sum);
}

template <int W, int H, int Dx, int Mode, int RC>
VekStatus mcBlock(const Vek8u* ref, int refStep, const Vek16s* residual, int residualStep, Vek8u* dst, int dstStep) {
    using L = Lanes<vectorFor<W, H>()>;
    constexpr int G = groupRows<W, H>();
    for (int y = 0; y < H; y += G) {
        const typename L::V p = predictRows<L, W, G, Dx, Mode, RC>(blockRow(ref, refStep, y), refStep, L::zero());
        addResidual<L, W, G>(p, blockRow(residual, residualStep, y), residualStep, blockRow(dst, dstStep, y), dstStep);
    }
    return StatusOk;
}

template <int W, int H, int Dx, int ModeF, int ModeB, int RC>
VekStatus mcBlockB(const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep, const Vek16s* residual,
                   int residualStep, Vek8u* dst, int dstStep) {
    using L = Lanes<vectorFor<W, H>()>;
    constexpr int G = groupRows<W, H>();
    for (int y = 0; y < H; y += G) {
        const typename L::V pf = predictRows<L, W, G, Dx, ModeF, RC>(blockRow(refF, refFStep, y), refFStep, L::zero());
        const typename L::V pb = predictRows<L, W, G, Dx, ModeB, RC>(blockRow(refB, refBStep, y), refBStep, L::zero());
        addResidual<L, W, G>(L::avg(pf, pb), blockRow(residual, residualStep, y), residualStep,
                             blockRow(dst, dstStep, y), dstStep);
    }
    return StatusOk;
}

// diff = cur - p for a group of rows.
template <class L, int W, int Rows>
inline void storeDifference(const Vek8u* cur, int curStep, typename L::V p, Vek16s* diff, int diffStep) {
    const typename L::V c = L::template gather<W, 0, W * Rows>(cur, curStep);
    Words<L, W, Rows>::store(bytesOf(diff), diffStep, L::sub16(L::widenLo(c), L::widenLo(p)),
                             L::sub16(L::widenHi(c), L::widenHi(p)));
}

template <int W, int H, int Mode, bool WithPredictor>
VekStatus diffBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16s* diff, int diffStep,
                    Vek16s* predictor, int predictorStep, int roundControl) {
    using L = Lanes<vectorFor<W, H>()>;
    constexpr int G = groupRows<W, H>();
    const typename L::V rc = L::bytes(roundControl);
    for (int y = 0; y < H; y += G) {
        const typename L::V p =
            predictRows<L, W, G, 1, Mode, kRoundingInVector>(blockRow(ref, refStep, y), refStep, rc);
        storeDifference<L, W, G>(blockRow(cur, curStep, y), curStep, p, blockRow(diff, diffStep, y), diffStep);
        if constexpr (WithPredictor)
            Words<L, W, G>::store(bytesOf(blockRow(predictor, predictorStep, y)), predictorStep, L::widenLo(p),
                                  L::widenHi(p));
    }
    return StatusOk;
}

template <int W, int H, int ModeF, int ModeB>
VekStatus diffBlockB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep,
                     Vek16s* diff, int diffStep, int roundControl) {
    using L = Lanes<vectorFor<W, H>()>;
    constexpr int G = groupRows<W, H>();
    const typename L::V rc = L::bytes(roundControl);
    for (int y = 0; y < H; y += G) {
        const typename L::V pf =
            predictRows<L, W, G, 1, ModeF, kRoundingInVector>(blockRow(refF, refFStep, y), refFStep, rc);
        const typename L::V pb =
            predictRows<L, W, G, 1, ModeB, kRoundingInVector>(blockRow(refB, refBStep, y), refBStep, rc);
        storeDifference<L, W, G>(blockRow(cur, curStep, y), curStep, L::avg(pf, pb), blockRow(diff, diffStep, y),
                                 diffStep);
    }
    return StatusOk;
}

}  // namespace

#endif
