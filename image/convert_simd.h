// Image type conversion kernels for the SIMD levels, written on the lane
// words of core/simd_lanes.h so that each level runs them on its widest
// vector (128 bits to SSE4.1, 256 with AVX2, 512 with AVX-512).
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; everything here has internal
// linkage (unnamed namespace), so each level gets its own copy built with
// its own instruction set.  __SSE4_1__ selects the shorter forms: sign
// extension (pmovsxwd), unsigned 16-bit minimum (pminuw), the unsigned
// 32-to-16-bit pack (packusdw) and rounding with an explicit mode (roundps).
//
// Floats are rounded to nearest with ties to even whatever rounding mode
// the caller has left in MXCSR.  Each row reads the mode once: when it is
// round-to-nearest (almost always), cvtps2dq rounds as wanted; otherwise
// SSE4.1 names the mode in the instruction (roundps) and SSE2 truncates
// (cvttps2dq ignores the mode) and corrects the result from the exact
// fraction.  MXCSR is never written.  The values are clamped to the
// destination's range before rounding, which keeps every step exact and
// gives the same result as rounding then saturating.
//
// A row is worked in blocks of one to four vectors through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack, so no access passes the caller's rows and every sample takes the
// same path.
#ifndef VEK_IMAGE_CONVERT_SIMD_H
#define VEK_IMAGE_CONVERT_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "core/simd_lanes.h"

namespace {

using V = WideI;
using F = WideF;
constexpr size_t kLanes32 = sizeof(V) / 4;  // 32-bit lanes of a vector

// A vector of 32-bit lanes stored as integers or as (exact) floats.
inline void store32(Vek32s* p, V v) { store(p, v); }
inline void store32(Vek32f* p, V v) { store(p, toFloat(v)); }

// ---- narrowing ---------------------------------------------------------------

// Whether the caller's MXCSR rounds to nearest, so that cvtps2dq does.
inline bool mxcsrRoundsToNearest() { return (_mm_getcsr() & _MM_ROUND_MASK) == _MM_ROUND_NEAREST; }

// x rounded to nearest, ties to even; |x| < 2^17.  Nearest: the caller's
// MXCSR rounds to nearest.
template <bool Nearest>
inline V roundToInt(F x) {
    if constexpr (Nearest) {
        return convertToInt(x);
    } else {
#ifdef __SSE4_1__
        return truncateToInt(roundNearestF(x));
#else
        const __m128i t = _mm_cvttps_epi32(x);                      // toward zero
        const __m128 fraction = _mm_sub_ps(x, _mm_cvtepi32_ps(t));  // exact, in (-1, 1)
        const __m128 half = _mm_set1_ps(0.5f), minusHalf = _mm_set1_ps(-0.5f);
        const __m128i one = _mm_set1_epi32(1);
        const __m128 odd = _mm_castsi128_ps(_mm_cmpeq_epi32(_mm_and_si128(t, one), one));
        const __m128 up = _mm_or_ps(_mm_cmpgt_ps(fraction, half), _mm_and_ps(_mm_cmpeq_ps(fraction, half), odd));
        const __m128 down =
            _mm_or_ps(_mm_cmplt_ps(fraction, minusHalf), _mm_and_ps(_mm_cmpeq_ps(fraction, minusHalf), odd));
        // The masks are -1 where they hold.
        return _mm_add_epi32(_mm_sub_epi32(t, _mm_castps_si128(up)), _mm_castps_si128(down));
#endif
    }
}

// x clamped to [0, hi] (NaN to 0: maxps gives its second operand when the
// first is NaN), then rounded.
template <bool Nearest>
inline V roundUnsigned(F x, F hi) {
    return roundToInt<Nearest>(minF(maxF(x, zero<F>()), hi));
}
// x clamped to [-32768, 32767], NaN to 0, then rounded.
template <bool Nearest>
inline V roundSigned16(F x) {
    const F ordered = select(cmpordF(x, x), x, zero<F>());
    return roundToInt<Nearest>(minF(maxF(ordered, splat<F>(-32768.0f)), splat<F>(32767.0f)));
}

// Lanes of 0..65535 in two vectors of 32-bit lanes, packed to 16 bits in order.
inline V packUnsigned16(V lo, V hi) {
#ifdef __SSE4_1__
    return packus32Ordered(lo, hi);
#else
    const __m128i bias = _mm_set1_epi32(32768);
    const __m128i packed = _mm_packs_epi32(_mm_sub_epi32(lo, bias), _mm_sub_epi32(hi, bias));
    return _mm_xor_si128(packed, _mm_set1_epi16(-32768));
#endif
}

// Unsigned 16-bit lanes made at most 255.
inline V min255(V x) {
#ifdef __SSE4_1__
    return minU16(x, splat<V>(Vek16u(255)));
#else
    return subsU16(x, subsU16(x, splat<V>(Vek16u(255))));
#endif
}

// ---- the blocks ------------------------------------------------------------------

// Samples of a block: one vector's worth of the narrower type's bytes, or
// two vectors of 32-bit lanes from 16 bits.
template <class S, class D>
constexpr size_t blockSamples() {
    return sizeof(S) == 1 || sizeof(D) == 1 ? sizeof(V) : 2 * kLanes32;
}

// Converts blockSamples<S, D>() samples.  Nearest: see roundToInt.
template <class S, class D, bool Nearest>
inline void convertBlock(const S* s, D* d) {
    constexpr size_t W = sizeof(V) / sizeof(D);        // destination samples a vector
    if constexpr (sizeof(S) == 1 && sizeof(D) == 2) {  // 8u to 16 bits
        store(d, loadExtend<V, S, Vek16u>(s));
        store(d + W, loadExtend<V, S, Vek16u>(s + W));
    } else if constexpr (sizeof(S) < sizeof(D)) {  // to 32 bits
        for (size_t k = 0; k < blockSamples<S, D>() / W; ++k) store32(d + k * W, loadExtend<V, S, Vek32s>(s + k * W));
    } else if constexpr (sizeof(D) == 1) {   // to 8u: packus saturates signed 16-bit lanes
        constexpr size_t H = sizeof(V) / 2;  // 16-bit samples a vector
        if constexpr (std::is_same_v<S, Vek16s>) {
            store(d, packus16Ordered(loadAs<V>(s), loadAs<V>(s + H)));
        } else if constexpr (std::is_same_v<S, Vek16u>) {
            store(d, packus16Ordered(min255(loadAs<V>(s)), min255(loadAs<V>(s + H))));
        } else {  // from 32 bits: two rounds of packs inside the lanes, then one reorder
            V q[4];
            for (size_t k = 0; k < 4; ++k) {
                if constexpr (std::is_same_v<S, Vek32s>)
                    q[k] = loadAs<V>(s + k * kLanes32);
                else
                    q[k] = roundUnsigned<Nearest>(loadAs<F>(s + k * kLanes32), splat<F>(255.0f));
            }
            store(d, orderAfterPack4(packus16(packs32(q[0], q[1]), packs32(q[2], q[3]))));
        }
    } else if constexpr (std::is_same_v<D, Vek16s>) {  // 32f to 16s
        store(d, packs32Ordered(roundSigned16<Nearest>(loadAs<F>(s)), roundSigned16<Nearest>(loadAs<F>(s + W / 2))));
    } else {  // 32f to 16u
        const F limit = splat<F>(65535.0f);
        store(d, packUnsigned16(roundUnsigned<Nearest>(loadAs<F>(s), limit),
                                roundUnsigned<Nearest>(loadAs<F>(s + W / 2), limit)));
    }
}

template <class S, class D, bool Nearest>
void convertRowIn(const S* src, D* dst, size_t n) {
    forEachBlock<blockSamples<S, D>()>(
        n, [](D* d, const S* s) { convertBlock<S, D, Nearest>(s, d); }, dst, src);
}

template <class S, class D>
void convertRow(const S* src, D* dst, size_t n) {
    if constexpr (std::is_floating_point_v<S>) {
        if (!mxcsrRoundsToNearest()) return convertRowIn<S, D, false>(src, dst, n);
    }
    convertRowIn<S, D, true>(src, dst, n);
}

}  // namespace

#endif
