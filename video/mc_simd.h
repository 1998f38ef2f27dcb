// Motion compensation and block differences for the SIMD levels.
//
// Each kernel works its block a group of rows at a time (block_simd.h):
// the prediction in bytes, then 16-bit lanes for the residual or the
// difference.  The sums need no wider lanes:
//   one reference:   clamp(p + e): saturating 16-bit add, then packus;
//   two references:  (pF + pB + 2e + 1) >> 1 = pavgb(pF, pB) + e, likewise;
//   difference B:    (2c - pF - pB) >> 1 = c - pavgb(pF, pB).
//
// The helpers are forced inline, as in block_simd.h: with hundreds of
// kernels using each of them, GCC would otherwise call them out of line.
//
// Included inside a level's namespace after block_simd.h; internal linkage.
#ifndef VEK_VIDEO_MC_SIMD_H
#define VEK_VIDEO_MC_SIMD_H

namespace {

template <class T>
[[gnu::always_inline]] inline const Vek8u* bytesOf(const T* p) {
    return reinterpret_cast<const Vek8u*>(p);
}
template <class T>
[[gnu::always_inline]] inline Vek8u* bytesOf(T* p) {
    return reinterpret_cast<Vek8u*>(p);
}

// The 16-bit samples of a group of Rows rows of W, as the two vectors that
// widenLo and widenHi of the group's bytes give (hi unused when it fits in lo).
template <class L, int W, int Rows>
struct Words {
    static constexpr int kBytes = 4 * W * Rows / 2, kVector = sizeof(typename L::V);
    [[gnu::always_inline]] static void load(const Vek8u* base, ptrdiff_t step, typename L::V& lo, typename L::V& hi) {
        lo = L::template gather<2 * W, 0, minOf(kVector, kBytes)>(base, step);
        if constexpr (kBytes > kVector)
            hi = L::template gather<2 * W, kVector, kBytes - kVector>(base, step);
        else
            hi = L::zero();
    }
    [[gnu::always_inline]] static void store(Vek8u* base, ptrdiff_t step, typename L::V lo, typename L::V hi) {
        L::template scatter<2 * W, 0, minOf(kVector, kBytes)>(base, step, lo);
        if constexpr (kBytes > kVector) L::template scatter<2 * W, kVector, kBytes - kVector>(base, step, hi);
    }
};

// dst = clamp(p + residual) for a group of rows.
template <class L, int W, int Rows>
[[gnu::always_inline]] inline void addResidual(typename L::V p, const Vek16s* residual, int residualStep, Vek8u* dst,
                                               int dstStep) {
    typename L::V lo, hi;
    Words<L, W, Rows>::load(bytesOf(residual), residualStep, lo, hi);
    const typename L::V sum = L::packUnsigned(L::adds16(L::widenLo(p), lo), L::adds16(L::widenHi(p), hi));
    L::template scatter<W, 0, W * Rows>(dst, dstStep, sum);
}

// The groups are few (at most four), so the loops unroll: a rolled loop
// keeps a pointer for every row it reads and runs out of registers.
template <int W, int H, int Dx, int Mode, int RC>
VekStatus mcBlock(const Vek8u* ref, int refStep, const Vek16s* residual, int residualStep, Vek8u* dst, int dstStep) {
    using L = Lanes<vectorFor<W, H>()>;
    constexpr int G = groupRows<W, H>();
#pragma GCC unroll 16
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
#pragma GCC unroll 16
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
[[gnu::always_inline]] inline void storeDifference(const Vek8u* cur, int curStep, typename L::V p, Vek16s* diff,
                                                   int diffStep) {
    const typename L::V c = L::template gather<W, 0, W * Rows>(cur, curStep);
    Words<L, W, Rows>::store(bytesOf(diff), diffStep, L::sub16(L::widenLo(c), L::widenLo(p)),
                             L::sub16(L::widenHi(c), L::widenHi(p)));
}

#if defined(__AVX2__)
// With AVX2 a difference of 8- or 16-sample rows goes a row at a time: the
// row's 16-bit results fill a vector of 16 or 32 bytes, the current row
// widens as it is loaded (pmovzxbw) and every store is a whole row.  The
// four-sample prediction stays in wide groups of rows, where its dozen
// operations a vector pay for the gathers.
template <int W, int... Modes>
constexpr bool differsByRows() {
    return W >= 8 && ((Modes != 12) && ...);
}
template <int W>
[[gnu::always_inline]] inline auto widenRow(__m128i bytes) {
    if constexpr (W == 16)
        return _mm256_cvtepu8_epi16(bytes);
    else
        return _mm_cvtepu8_epi16(bytes);
}
[[gnu::always_inline]] inline __m128i subWords(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
[[gnu::always_inline]] inline __m256i subWords(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }

// diff = cur - p for one row, p in the low W bytes.
template <int W>
[[gnu::always_inline]] inline void storeRowDifference(const Vek8u* cur, __m128i p, Vek16s* diff) {
    store(diff, subWords(widenRow<W>(Lanes<16>::gather<W, 0, W>(cur, 0)), widenRow<W>(p)));
}
#else
template <int W, int... Modes>
constexpr bool differsByRows() {
    return false;
}
#endif

// The vector a difference's group of rows is worked in: rows of 8 bytes
// stay in 16-byte vectors, two rows each; gathering them into wider ones
// costs more inserts and cross-lane moves than it saves.
template <int W, int H>
constexpr int differenceVector() {
    return W == 8 ? 16 : vectorFor<W, H>();
}

// The difference kernels are given the rounding control; each branches on
// it once, to a body built for it.
template <int W, int H, int Mode, bool WithPredictor, int RC>
VekStatus differenceOf(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16s* diff, int diffStep,
                       Vek16s* predictor, int predictorStep) {
    if constexpr (differsByRows<W, Mode>()) {
#if defined(__AVX2__)
        for (int y = 0; y < H; ++y) {
            const __m128i p =
                predictRows<Lanes<16>, W, 1, 1, Mode, RC>(blockRow(ref, refStep, y), refStep, Lanes<16>::zero());
            storeRowDifference<W>(blockRow(cur, curStep, y), p, blockRow(diff, diffStep, y));
            if constexpr (WithPredictor) store(blockRow(predictor, predictorStep, y), widenRow<W>(p));
        }
#endif
    } else {
        using L = Lanes<differenceVector<W, H>()>;
        constexpr int G = minOf(H, differenceVector<W, H>() / W);
        for (int y = 0; y < H; y += G) {
            const typename L::V p = predictRows<L, W, G, 1, Mode, RC>(blockRow(ref, refStep, y), refStep, L::zero());
            storeDifference<L, W, G>(blockRow(cur, curStep, y), curStep, p, blockRow(diff, diffStep, y), diffStep);
            if constexpr (WithPredictor)
                Words<L, W, G>::store(bytesOf(blockRow(predictor, predictorStep, y)), predictorStep, L::widenLo(p),
                                      L::widenHi(p));
        }
    }
    return StatusOk;
}

template <int W, int H, int Mode, bool WithPredictor>
VekStatus diffBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16s* diff, int diffStep,
                    Vek16s* predictor, int predictorStep, int roundControl) {
    if (Mode != 0 && roundControl != 0)
        return differenceOf<W, H, Mode, WithPredictor, 1>(cur, curStep, ref, refStep, diff, diffStep, predictor,
                                                          predictorStep);
    return differenceOf<W, H, Mode, WithPredictor, 0>(cur, curStep, ref, refStep, diff, diffStep, predictor,
                                                      predictorStep);
}

template <int W, int H, int ModeF, int ModeB, int RC>
VekStatus differenceOfB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep,
                        Vek16s* diff, int diffStep) {
    if constexpr (differsByRows<W, ModeF, ModeB>()) {
#if defined(__AVX2__)
        for (int y = 0; y < H; ++y) {
            const __m128i pf =
                predictRows<Lanes<16>, W, 1, 1, ModeF, RC>(blockRow(refF, refFStep, y), refFStep, Lanes<16>::zero());
            const __m128i pb =
                predictRows<Lanes<16>, W, 1, 1, ModeB, RC>(blockRow(refB, refBStep, y), refBStep, Lanes<16>::zero());
            storeRowDifference<W>(blockRow(cur, curStep, y), Lanes<16>::avg(pf, pb), blockRow(diff, diffStep, y));
        }
#endif
    } else {
        using L = Lanes<differenceVector<W, H>()>;
        constexpr int G = minOf(H, differenceVector<W, H>() / W);
        for (int y = 0; y < H; y += G) {
            const typename L::V pf =
                predictRows<L, W, G, 1, ModeF, RC>(blockRow(refF, refFStep, y), refFStep, L::zero());
            const typename L::V pb =
                predictRows<L, W, G, 1, ModeB, RC>(blockRow(refB, refBStep, y), refBStep, L::zero());
            storeDifference<L, W, G>(blockRow(cur, curStep, y), curStep, L::avg(pf, pb), blockRow(diff, diffStep, y),
                                     diffStep);
        }
    }
    return StatusOk;
}

template <int W, int H, int ModeF, int ModeB>
VekStatus diffBlockB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep,
                     Vek16s* diff, int diffStep, int roundControl) {
    if ((ModeF | ModeB) != 0 && roundControl != 0)
        return differenceOfB<W, H, ModeF, ModeB, 1>(cur, curStep, refF, refFStep, refB, refBStep, diff, diffStep);
    return differenceOfB<W, H, ModeF, ModeB, 0>(cur, curStep, refF, refFStep, refB, refBStep, diff, diffStep);
}

}  // namespace

#endif
