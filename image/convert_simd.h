// Image type conversion kernels for the SSE2 and SSE4.1 levels.
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
// A row is worked in blocks of 8 or 16 samples through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack, so no access passes the caller's rows and every sample takes the
// same path.
#ifndef VEK_IMAGE_CONVERT_SIMD_H
#define VEK_IMAGE_CONVERT_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// Four 32-bit lanes stored as integers or as (exact) floats.
inline void store32(Vek32s* p, __m128i v) { store(p, v); }
inline void store32(Vek32f* p, __m128i v) { store(p, _mm_cvtepi32_ps(v)); }

// ---- widening -----------------------------------------------------------------

// The low and high four 16-bit lanes of x, extended to 32 bits.
template <class S>
inline __m128i widenLo16(__m128i x) {
    if constexpr (std::is_signed_v<S>) {
#ifdef __SSE4_1__
        return _mm_cvtepi16_epi32(x);
#else
        return _mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16);
#endif
    } else {
        return _mm_unpacklo_epi16(x, _mm_setzero_si128());
    }
}
template <class S>
inline __m128i widenHi16(__m128i x) {
    if constexpr (std::is_signed_v<S>) {
#ifdef __SSE4_1__
        return _mm_cvtepi16_epi32(_mm_srli_si128(x, 8));
#else
        return _mm_srai_epi32(_mm_unpackhi_epi16(x, x), 16);
#endif
    } else {
        return _mm_unpackhi_epi16(x, _mm_setzero_si128());
    }
}

// ---- narrowing ---------------------------------------------------------------

// Whether the caller's MXCSR rounds to nearest, so that cvtps2dq does.
inline bool mxcsrRoundsToNearest() { return (_mm_getcsr() & _MM_ROUND_MASK) == _MM_ROUND_NEAREST; }

// x rounded to nearest, ties to even; |x| < 2^17.  Nearest: the caller's
// MXCSR rounds to nearest.
template <bool Nearest>
inline __m128i roundToInt(__m128 x) {
    if constexpr (Nearest) {
        return _mm_cvtps_epi32(x);
    } else {
#ifdef __SSE4_1__
        return _mm_cvttps_epi32(_mm_round_ps(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
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
inline __m128i roundUnsigned(__m128 x, __m128 hi) {
    return roundToInt<Nearest>(_mm_min_ps(_mm_max_ps(x, _mm_setzero_ps()), hi));
}
// x clamped to [-32768, 32767], NaN to 0, then rounded.
template <bool Nearest>
inline __m128i roundSigned16(__m128 x) {
    const __m128 ordered = _mm_and_ps(x, _mm_cmpord_ps(x, x));
    return roundToInt<Nearest>(_mm_min_ps(_mm_max_ps(ordered, _mm_set1_ps(-32768.0f)), _mm_set1_ps(32767.0f)));
}

// Eight lanes of 0..65535 in two vectors of 32-bit lanes, packed to 16 bits.
inline __m128i packUnsigned16(__m128i lo, __m128i hi) {
#ifdef __SSE4_1__
    return _mm_packus_epi32(lo, hi);
#else
    const __m128i bias = _mm_set1_epi32(32768);
    const __m128i packed = _mm_packs_epi32(_mm_sub_epi32(lo, bias), _mm_sub_epi32(hi, bias));
    return _mm_xor_si128(packed, _mm_set1_epi16(-32768));
#endif
}

// Eight unsigned 16-bit lanes made at most 255.
inline __m128i min255(__m128i x) {
#ifdef __SSE4_1__
    return _mm_min_epu16(x, _mm_set1_epi16(255));
#else
    return _mm_subs_epu16(x, _mm_subs_epu16(x, _mm_set1_epi16(255)));
#endif
}

// ---- the blocks ------------------------------------------------------------------

template <class S, class D>
constexpr size_t blockSamples() {
    return sizeof(S) == 1 || sizeof(D) == 1 ? 16 : 8;
}

// Converts blockSamples<S, D>() samples.  Nearest: see roundToInt.
template <class S, class D, bool Nearest>
inline void convertBlock(const S* s, D* d) {
    const __m128i zero = _mm_setzero_si128();
    if constexpr (sizeof(S) == 1) {  // 8u to 16 or 32 bits
        const __m128i x = load128i(s);
        const __m128i lo = _mm_unpacklo_epi8(x, zero), hi = _mm_unpackhi_epi8(x, zero);
        if constexpr (sizeof(D) == 2) {
            store(d, lo);
            store(d + 8, hi);
        } else {
            store32(d, _mm_unpacklo_epi16(lo, zero));
            store32(d + 4, _mm_unpackhi_epi16(lo, zero));
            store32(d + 8, _mm_unpacklo_epi16(hi, zero));
            store32(d + 12, _mm_unpackhi_epi16(hi, zero));
        }
    } else if constexpr (sizeof(S) == 2 && sizeof(D) == 4) {  // 16 to 32 bits
        const __m128i x = load128i(s);
        store32(d, widenLo16<S>(x));
        store32(d + 4, widenHi16<S>(x));
    } else if constexpr (sizeof(D) == 1) {  // to 8u: packus saturates signed 16-bit lanes
        __m128i lo, hi;                     // samples 0..7 and 8..15 as signed 16-bit lanes
        if constexpr (std::is_same_v<S, Vek16s>) {
            lo = load128i(s), hi = load128i(s + 8);
        } else if constexpr (std::is_same_v<S, Vek16u>) {
            lo = min255(load128i(s)), hi = min255(load128i(s + 8));
        } else if constexpr (std::is_same_v<S, Vek32s>) {
            lo = _mm_packs_epi32(load128i(s), load128i(s + 4));
            hi = _mm_packs_epi32(load128i(s + 8), load128i(s + 12));
        } else {
            const __m128 limit = _mm_set1_ps(255.0f);
            auto round4 = [limit](const Vek32f* p) { return roundUnsigned<Nearest>(load128f(p), limit); };
            lo = _mm_packs_epi32(round4(s), round4(s + 4));
            hi = _mm_packs_epi32(round4(s + 8), round4(s + 12));
        }
        store(d, _mm_packus_epi16(lo, hi));
    } else if constexpr (std::is_same_v<D, Vek16s>) {  // 32f to 16s
        auto round4 = [](const Vek32f* p) { return roundSigned16<Nearest>(load128f(p)); };
        store(d, _mm_packs_epi32(round4(s), round4(s + 4)));
    } else {  // 32f to 16u
        const __m128 limit = _mm_set1_ps(65535.0f);
        auto round4 = [limit](const Vek32f* p) { return roundUnsigned<Nearest>(load128f(p), limit); };
        store(d, packUnsigned16(round4(s), round4(s + 4)));
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
