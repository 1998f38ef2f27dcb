// JPEG DCT kernels for the vector levels (SSE2, SSE4.1, AVX2, and the
// AVX-512 level's float forward transform).
//
// Included by each level's translation unit inside its namespace, after the
// intrinsics headers; everything has internal linkage, so each level gets
// its own copy built with its own instruction set.
//
// A block is eight rows of eight 32-bit lanes: two 128-bit halves below
// AVX2, one 256-bit register from AVX2.  The 1-D transforms of dct_flow.h
// run across the eight registers, one row or column per lane, so the
// transposes between the passes stay in registers.  The lanes are 32 bits
// wide because the plain reference forms its sums modulo 2^32 from values
// that need more than 16 bits (differences of 16-bit inputs, 20-bit
// intermediates): with 32-bit lanes every level forms the same sums, for
// every input, wrapped ones included.  Products: pmulld from SSE4.1,
// two pmuludq and a shuffle on SSE2.
//
// The float path uses the same layout with float lanes; the final
// conversion rounds to nearest with roundps from SSE4.1 (its mode written
// in the instruction), on SSE2 with cvtps2dq when MXCSR rounds to nearest,
// and otherwise falls back to the scalar rule that ignores the mode.
#ifndef VEK_JPEG_DCT_SIMD_H
#define VEK_JPEG_DCT_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// ---- eight 32-bit lanes ------------------------------------------------------

#ifdef __AVX2__
struct Lane {
    __m256i v;
    static Lane splat(int32_t k) { return {_mm256_set1_epi32(k)}; }
};
inline Lane operator+(Lane a, Lane b) { return {_mm256_add_epi32(a.v, b.v)}; }
inline Lane operator-(Lane a, Lane b) { return {_mm256_sub_epi32(a.v, b.v)}; }
inline Lane operator*(Lane a, Lane b) { return {_mm256_mullo_epi32(a.v, b.v)}; }
inline Lane operator*(Lane a, int32_t k) { return a * Lane::splat(k); }
// a * k for a and k within 16 signed bits: pmaddwd of (a, sign) by (k, 0).
inline Lane mul16(Lane a, int32_t k) { return {_mm256_madd_epi16(a.v, _mm256_set1_epi32(k & 0xFFFF))}; }
template <int N>
inline Lane sra(Lane a) {
    return {_mm256_srai_epi32(a.v, N)};
}
template <int N>
inline Lane shl(Lane a) {
    return {_mm256_slli_epi32(a.v, N)};
}
inline Lane operator&(Lane a, Lane b) { return {_mm256_and_si256(a.v, b.v)}; }
inline Lane lessThan(Lane a, Lane b) { return {_mm256_cmpgt_epi32(b.v, a.v)}; }
inline Lane select(Lane mask, Lane ifTrue, Lane ifFalse) { return {select(mask.v, ifTrue.v, ifFalse.v)}; }

// Eight 16-bit values sign- or zero-extended, and back (saturating).
inline Lane widenSigned(__m128i x) { return {_mm256_cvtepi16_epi32(x)}; }
inline Lane widenUnsigned(__m128i x) { return {_mm256_cvtepu16_epi32(x)}; }
inline Lane widenBytes(__m128i x) { return {_mm256_cvtepu8_epi32(x)}; }
inline __m128i packSaturated(Lane a) {
    return _mm_packs_epi32(_mm256_castsi256_si128(a.v), _mm256_extracti128_si256(a.v, 1));
}

inline void transpose(Lane* r) {
    __m256i t[8], u[8];
    for (int i = 0; i < 8; i += 2) {
        t[i] = _mm256_unpacklo_epi32(r[i].v, r[i + 1].v);
        t[i + 1] = _mm256_unpackhi_epi32(r[i].v, r[i + 1].v);
    }
    for (int i = 0; i < 8; i += 4) {
        u[i] = _mm256_unpacklo_epi64(t[i], t[i + 2]);
        u[i + 1] = _mm256_unpackhi_epi64(t[i], t[i + 2]);
        u[i + 2] = _mm256_unpacklo_epi64(t[i + 1], t[i + 3]);
        u[i + 3] = _mm256_unpackhi_epi64(t[i + 1], t[i + 3]);
    }
    for (int i = 0; i < 4; ++i) {
        r[i].v = _mm256_permute2x128_si256(u[i], u[i + 4], 0x20);
        r[i + 4].v = _mm256_permute2x128_si256(u[i], u[i + 4], 0x31);
    }
}

struct FloatLane {
    __m256 v;
};
inline FloatLane operator+(FloatLane a, FloatLane b) { return {_mm256_add_ps(a.v, b.v)}; }
inline FloatLane operator-(FloatLane a, FloatLane b) { return {_mm256_sub_ps(a.v, b.v)}; }
inline FloatLane operator*(FloatLane a, FloatLane b) { return {_mm256_mul_ps(a.v, b.v)}; }
inline FloatLane operator*(FloatLane a, float k) { return {_mm256_mul_ps(a.v, _mm256_set1_ps(k))}; }
inline FloatLane toFloat(Lane a) { return {_mm256_cvtepi32_ps(a.v)}; }
inline FloatLane loadFloats(const float* p) { return {load256f(p)}; }
inline FloatLane splatFloat(float k) { return {_mm256_set1_ps(k)}; }
inline void storeFloats(float* p, FloatLane a) { store(p, a.v); }
inline Lane asLane(FloatLane a) { return {_mm256_castps_si256(a.v)}; }
inline FloatLane asFloat(Lane a) { return {_mm256_castsi256_ps(a.v)}; }

// Rounded to nearest (ties to even) by the mode written in the
// instruction, NaN to 0, clamped to [lo, hi].
inline Lane roundClamped(FloatLane x, float lo, float hi) {
    __m256 v = _mm256_and_ps(x.v, _mm256_cmp_ps(x.v, x.v, _CMP_ORD_Q));
    v = _mm256_min_ps(_mm256_max_ps(v, _mm256_set1_ps(lo)), _mm256_set1_ps(hi));
    return {_mm256_cvttps_epi32(_mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC))};
}
#else
struct Lane {
    __m128i lo, hi;
    static Lane splat(int32_t k) { return {_mm_set1_epi32(k), _mm_set1_epi32(k)}; }
};
inline __m128i mul32(__m128i a, __m128i b) {
#    ifdef __SSE4_1__
    return _mm_mullo_epi32(a, b);
#    else
    // The low 32 bits of the unsigned products are those of the signed ones.
    const __m128i even = _mm_mul_epu32(a, b);
    const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a, 32), _mm_srli_epi64(b, 32));
    return _mm_unpacklo_epi32(_mm_shuffle_epi32(even, _MM_SHUFFLE(0, 0, 2, 0)),
                              _mm_shuffle_epi32(odd, _MM_SHUFFLE(0, 0, 2, 0)));
#    endif
}
inline Lane operator+(Lane a, Lane b) { return {_mm_add_epi32(a.lo, b.lo), _mm_add_epi32(a.hi, b.hi)}; }
inline Lane operator-(Lane a, Lane b) { return {_mm_sub_epi32(a.lo, b.lo), _mm_sub_epi32(a.hi, b.hi)}; }
inline Lane operator*(Lane a, Lane b) { return {mul32(a.lo, b.lo), mul32(a.hi, b.hi)}; }
inline Lane operator*(Lane a, int32_t k) { return a * Lane::splat(k); }
// a * k for a and k within 16 signed bits: pmaddwd of (a, sign) by (k, 0).
inline Lane mul16(Lane a, int32_t k) {
    const __m128i kk = _mm_set1_epi32(k & 0xFFFF);
    return {_mm_madd_epi16(a.lo, kk), _mm_madd_epi16(a.hi, kk)};
}
template <int N>
inline Lane sra(Lane a) {
    return {_mm_srai_epi32(a.lo, N), _mm_srai_epi32(a.hi, N)};
}
template <int N>
inline Lane shl(Lane a) {
    return {_mm_slli_epi32(a.lo, N), _mm_slli_epi32(a.hi, N)};
}
inline Lane operator&(Lane a, Lane b) { return {_mm_and_si128(a.lo, b.lo), _mm_and_si128(a.hi, b.hi)}; }
inline Lane lessThan(Lane a, Lane b) { return {_mm_cmplt_epi32(a.lo, b.lo), _mm_cmplt_epi32(a.hi, b.hi)}; }
inline Lane select(Lane mask, Lane ifTrue, Lane ifFalse) {
    return {select(mask.lo, ifTrue.lo, ifFalse.lo), select(mask.hi, ifTrue.hi, ifFalse.hi)};
}

inline Lane widenSigned(__m128i x) {
#    ifdef __SSE4_1__
    return {_mm_cvtepi16_epi32(x), _mm_cvtepi16_epi32(_mm_srli_si128(x, 8))};
#    else
    return {_mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16), _mm_srai_epi32(_mm_unpackhi_epi16(x, x), 16)};
#    endif
}
inline Lane widenUnsigned(__m128i x) {
    const __m128i zero = _mm_setzero_si128();
    return {_mm_unpacklo_epi16(x, zero), _mm_unpackhi_epi16(x, zero)};
}
inline Lane widenBytes(__m128i x) { return widenUnsigned(_mm_unpacklo_epi8(x, _mm_setzero_si128())); }
inline __m128i packSaturated(Lane a) { return _mm_packs_epi32(a.lo, a.hi); }

inline void transpose4(__m128i& a, __m128i& b, __m128i& c, __m128i& d) {
    const __m128i t0 = _mm_unpacklo_epi32(a, b), t1 = _mm_unpacklo_epi32(c, d);
    const __m128i t2 = _mm_unpackhi_epi32(a, b), t3 = _mm_unpackhi_epi32(c, d);
    a = _mm_unpacklo_epi64(t0, t1);
    b = _mm_unpackhi_epi64(t0, t1);
    c = _mm_unpacklo_epi64(t2, t3);
    d = _mm_unpackhi_epi64(t2, t3);
}
// The four 4 x 4 quarters transposed, the off-diagonal ones swapped.
inline void transpose(Lane* r) {
    transpose4(r[0].lo, r[1].lo, r[2].lo, r[3].lo);
    transpose4(r[0].hi, r[1].hi, r[2].hi, r[3].hi);
    transpose4(r[4].lo, r[5].lo, r[6].lo, r[7].lo);
    transpose4(r[4].hi, r[5].hi, r[6].hi, r[7].hi);
    for (int i = 0; i < 4; ++i) {
        const __m128i upperRight = r[i].hi;
        r[i].hi = r[i + 4].lo;
        r[i + 4].lo = upperRight;
    }
}

struct FloatLane {
    __m128 lo, hi;
};
inline FloatLane operator+(FloatLane a, FloatLane b) { return {_mm_add_ps(a.lo, b.lo), _mm_add_ps(a.hi, b.hi)}; }
inline FloatLane operator-(FloatLane a, FloatLane b) { return {_mm_sub_ps(a.lo, b.lo), _mm_sub_ps(a.hi, b.hi)}; }
inline FloatLane operator*(FloatLane a, FloatLane b) { return {_mm_mul_ps(a.lo, b.lo), _mm_mul_ps(a.hi, b.hi)}; }
inline FloatLane operator*(FloatLane a, float k) {
    const __m128 kk = _mm_set1_ps(k);
    return {_mm_mul_ps(a.lo, kk), _mm_mul_ps(a.hi, kk)};
}
inline FloatLane toFloat(Lane a) { return {_mm_cvtepi32_ps(a.lo), _mm_cvtepi32_ps(a.hi)}; }
inline FloatLane loadFloats(const float* p) { return {load128f(p), load128f(p + 4)}; }
inline FloatLane splatFloat(float k) { return {_mm_set1_ps(k), _mm_set1_ps(k)}; }
inline void storeFloats(float* p, FloatLane a) {
    store(p, a.lo);
    store(p + 4, a.hi);
}
inline Lane asLane(FloatLane a) { return {_mm_castps_si128(a.lo), _mm_castps_si128(a.hi)}; }
inline FloatLane asFloat(Lane a) { return {_mm_castsi128_ps(a.lo), _mm_castsi128_ps(a.hi)}; }

// Rounded to nearest (ties to even), NaN to 0, clamped to [lo, hi]: from
// SSE4.1 by the mode written in the instruction, on SSE2 by MXCSR's.
inline __m128i roundClamped(__m128 x, __m128 lo, __m128 hi) {
    const __m128 v = _mm_min_ps(_mm_max_ps(_mm_and_ps(x, _mm_cmpord_ps(x, x)), lo), hi);
#    ifdef __SSE4_1__
    return _mm_cvttps_epi32(_mm_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
#    else
    return _mm_cvtps_epi32(v);
#    endif
}
inline Lane roundClamped(FloatLane x, float lo, float hi) {
    const __m128 l = _mm_set1_ps(lo), h = _mm_set1_ps(hi);
    return {roundClamped(x.lo, l, h), roundClamped(x.hi, l, h)};
}
#endif

inline void transposeFloats(FloatLane* x) {
    Lane bits[8];
    for (int k = 0; k < 8; ++k) bits[k] = asLane(x[k]);
    transpose(bits);
    for (int k = 0; k < 8; ++k) x[k] = asFloat(bits[k]);
}

// Whether roundClamped rounds to nearest: always from SSE4.1; on SSE2 when
// MXCSR does.  SSE4.1 and up skip reading MXCSR: stmxcsr waits for every
// float operation in flight, which keeps one block's transform from
// overlapping the next one's.
inline bool roundsToNearest() {
#ifdef __SSE4_1__
    return true;
#else
    return (_mm_getcsr() & _MM_ROUND_MASK) == _MM_ROUND_NEAREST;
#endif
}

}  // namespace

// The data flows, written over the lane types above.
#include "jpeg/dct_flow.h"

namespace {

// ---- rows in and out -----------------------------------------------------------

inline Lane loadRow(const Vek16s* p) { return widenSigned(load128i(p)); }
inline Lane loadRow(const Vek16u* p) { return widenUnsigned(load128i(p)); }
inline Lane loadRow(const Vek8u* p) {
    return widenBytes(_mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(p))));
}

// Row r of a coefficient block times row r of an inverse table read as
// signed, saturated: 16-bit products widened to exact 32-bit ones, packed
// back with saturation.
inline __m128i dequantiseRow(const Vek16s* coef, const Vek16u* table) {
    const __m128i c = load128i(coef), q = load128i(table);
    const __m128i lo = _mm_mullo_epi16(c, q), hi = _mm_mulhi_epi16(c, q);
    return _mm_packs_epi32(_mm_unpacklo_epi16(lo, hi), _mm_unpackhi_epi16(lo, hi));
}

// p = table * coef; (p + 0x3FFF + ((p >> 15) & 1)) >> 15, saturated.
inline __m128i quantiseRow(Lane coef, const Vek16u* table) {
    const Lane p = coef * loadRow(table);
    const Lane odd = sra<15>(p) & Lane::splat(1);
    return packSaturated(sra<15>(p + Lane::splat(0x3FFF) + odd));
}

// ---- the block kernels -------------------------------------------------------------

// Pass 1 over the rows, pass 2 over the columns, quantisation when a table
// is given.  Shortcuts that give the reference's bits:
//  - 8-bit samples: the shift changes only the sum of the row (every other
//    output takes differences), so it is added to output 0 as 64 * shift;
//    the products take the narrow form (forward8), and pass 1's outputs
//    stay within 16 bits (at most 8 * 2040), so their store is exact.
//  - Pass 2's outputs always fit in 16 bits: the rotated ones are 32-bit
//    values shifted right by 21, outputs 0 and 4 sums of eight 16-bit
//    values shifted right by 6; so the coefficients need no wrap.
template <class Sample>
inline void forwardBlock(const Sample* src, int srcStep, int32_t shift, Vek16s* dst, const Vek16u* table) {
    constexpr bool kBytes = std::is_same_v<Sample, Vek8u>;
    Lane x[8];
    for (int r = 0; r < 8; ++r) {
        x[r] = loadRow(jpeg::blockRow(src, srcStep, r));
        if (!kBytes) x[r] = x[r] + Lane::splat(shift);
    }
    transpose(x);
    forward8<false, kBytes>(x);
    if (kBytes)
        x[0] = x[0] + Lane::splat(64 * shift);
    else
        for (int k = 0; k < 8; ++k) x[k] = wrap16(x[k]);
    transpose(x);
    forward8<true>(x);
    for (int u = 0; u < 8; ++u) store(dst + 8 * u, table ? quantiseRow(x[u], table + 8 * u) : packSaturated(x[u]));
}

inline void inverseBlock(const Vek16s* coef, const Vek16u* table, Vek16s* out) {
    Lane x[8];
    for (int r = 0; r < 8; ++r)
        x[r] = table ? widenSigned(dequantiseRow(coef + 8 * r, table + 8 * r)) : loadRow(coef + 8 * r);
    inverse8<false>(x);
    for (int k = 0; k < 8; ++k) x[k] = wrap16(x[k]);
    transpose(x);
    inverse8<true>(x);
    for (int k = 0; k < 8; ++k) x[k] = wrap16(x[k]);
    transpose(x);
    for (int r = 0; r < 8; ++r) store(out + 8 * r, packSaturated(x[r]));
}

inline void storeBlock16s(const Vek16s* result, Vek16s* dst, int dstStep) {
    for (int r = 0; r < 8; ++r) store(jpeg::blockRow(dst, dstStep, r), load128i(result + 8 * r));
}

inline void storeEightBytes(Vek8u* p, __m128i x) { _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(p)), x); }

// v = result + add; below lo gives lo, else above hi gives hi.  With the
// clamp 0..255 a saturating 16-bit add then an unsigned pack is the same.
inline void storeBlockClip(const Vek16s* result, Vek8u* dst, int dstStep, int add, int lo, int hi) {
    if (lo == 0 && hi == 255) {
        const __m128i a = _mm_set1_epi16(static_cast<short>(add));
        for (int r = 0; r < 8; r += 2) {
            const __m128i v0 = _mm_adds_epi16(load128i(result + 8 * r), a);
            const __m128i v1 = _mm_adds_epi16(load128i(result + 8 * r + 8), a);
            const __m128i bytes = _mm_packus_epi16(v0, v1);
            storeEightBytes(jpeg::blockRow(dst, dstStep, r), bytes);
            storeEightBytes(jpeg::blockRow(dst, dstStep, r + 1), _mm_srli_si128(bytes, 8));
        }
        return;
    }
    const Lane a = Lane::splat(add), low = Lane::splat(lo), high = Lane::splat(hi);
    for (int r = 0; r < 8; ++r) {
        const Lane v = loadRow(result + 8 * r) + a;
        const Lane clipped = select(lessThan(v, low), low, select(lessThan(high, v), high, v));
        const __m128i words = packSaturated(clipped);
        storeEightBytes(jpeg::blockRow(dst, dstStep, r), _mm_packus_epi16(words, words));
    }
}

inline void quantiseBlock(Vek16s* block, const Vek16u* table) {
    for (int r = 0; r < 8; ++r) store(block + 8 * r, quantiseRow(loadRow(block + 8 * r), table + 8 * r));
}

inline void dequantiseBlock(const Vek16s* src, Vek16s* dst, const Vek16u* table) {
    for (int r = 0; r < 8; ++r) store(dst + 8 * r, dequantiseRow(src + 8 * r, table + 8 * r));
}

// The scaled-down inverses of a dequantised block: pass 1 down the columns
// (natural layout), a transpose, pass 2 along the rows, a transpose back;
// the unused lanes and registers carry zeros.
template <int Outputs, class Reduce1, class Reduce2>
inline void inverseReduced(const Vek16s* coef, Vek16s* out, Reduce1 pass1, Reduce2 pass2) {
    Lane x[8], y[8];
    for (int r = 0; r < 8; ++r) x[r] = loadRow(coef + 8 * r);
    pass1(x, y);
    for (int k = 0; k < 8; ++k) y[k] = k < Outputs ? wrap16(y[k]) : Lane::splat(0);
    transpose(y);
    pass2(y, x);
    for (int k = 0; k < 8; ++k) x[k] = k < Outputs ? wrap16(x[k]) : Lane::splat(0);
    transpose(x);
    alignas(16) Vek16s row[8];
    for (int r = 0; r < Outputs; ++r) {
        store(row, packSaturated(x[r]));
        memcpy(out + Outputs * r, row, Outputs * sizeof(Vek16s));
    }
}
inline void inverseTo4x4(const Vek16s* coef, Vek16s* out) {
    inverseReduced<4>(
        coef, out, [](const Lane* x, Lane* y) { inverseTo4<false>(x, y); },
        [](const Lane* x, Lane* y) { inverseTo4<true>(x, y); });
}
inline void inverseTo2x2(const Vek16s* coef, Vek16s* out) {
    inverseReduced<2>(
        coef, out, [](const Lane* x, Lane* y) { inverseTo2<false>(x, y); },
        [](const Lane* x, Lane* y) { inverseTo2<true>(x, y); });
}

// Eight rounded values of a row: the vector rounding when it rounds to
// nearest, the scalar rule that ignores the mode otherwise.
inline __m128i roundedRow(FloatLane v, bool nearest, int32_t lo, int32_t hi) {
    if (nearest) return packSaturated(roundClamped(v, static_cast<float>(lo), static_cast<float>(hi)));
    alignas(32) float f[8];
    storeFloats(f, v);
    alignas(16) Vek16s r[8];
    for (int k = 0; k < 8; ++k) r[k] = static_cast<Vek16s>(roundFloat(f[k], lo, hi));
    return load128i(r);
}

// The rows of coefficients rounded and saturated to 16 bits.  From AVX2
// two rows a step: rounded to nearest by roundps, converted, packed with
// signed saturation, which together equal clamping then rounding for every
// value that converts (|v| < 2^31).  NaN and larger values convert to
// INT_MIN; a block with such a lane goes through the clamping rows.
inline void storeRoundedRows(const FloatLane* v, Vek16s* dst) {
#if defined(__AVX512F__)
    // Two rows a 512-bit register, rounded by the conversion's own mode
    // and narrowed with signed saturation.
    __mmask16 seen = 0;
    for (int u = 0; u < 8; u += 2) {
        const __m512 rows = _mm512_insertf32x8(_mm512_castps256_ps512(v[u].v), v[u + 1].v, 1);
        const __m512i r = _mm512_cvt_roundps_epi32(rows, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        seen |= _mm512_cmpeq_epi32_mask(r, _mm512_set1_epi32(INT32_MIN));
        store(dst + 8 * u, _mm512_cvtsepi32_epi16(r));
    }
    if (!seen) return;
#elif defined(__AVX2__)
    const __m256i invalid = _mm256_set1_epi32(INT32_MIN);
    __m256i seen = _mm256_setzero_si256();
    for (int u = 0; u < 8; u += 2) {
        const __m256i a = _mm256_cvttps_epi32(_mm256_round_ps(v[u].v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        const __m256i b =
            _mm256_cvttps_epi32(_mm256_round_ps(v[u + 1].v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        seen = _mm256_or_si256(seen, _mm256_or_si256(_mm256_cmpeq_epi32(a, invalid), _mm256_cmpeq_epi32(b, invalid)));
        store(dst + 8 * u, _mm256_permute4x64_epi64(_mm256_packs_epi32(a, b), 0xD8));
    }
    if (_mm256_testz_si256(seen, seen)) return;
#endif
    const bool nearest = roundsToNearest();
    for (int u = 0; u < 8; ++u) store(dst + 8 * u, roundedRow(v[u], nearest, -32768, 32767));
}

// Samples to coefficients.  The samples convert exactly, and the row pass
// forms only sums and differences of them before its first product, all
// exact (below 2^24): so the level shift, - 2048 on each sample, is exactly
// - 8 * 2048 on the row's output 0 and nothing on the others.
inline void forwardFloatBlock(const Vek16u* src, int srcStep, Vek16s* dst, const Vek32f* table) {
    FloatLane x[8];
    for (int r = 0; r < 8; ++r) x[r] = toFloat(loadRow(jpeg::blockRow(src, srcStep, r)));
    transposeFloats(x);
    forwardFloat8(x);
    x[0] = x[0] - splatFloat(8 * 2048.0f);
    transposeFloats(x);
    forwardFloat8(x);
    for (int u = 0; u < 8; ++u) x[u] = (x[u] * loadFloats(kForwardPostScale + 8 * u)) * loadFloats(table + 8 * u);
    storeRoundedRows(x, dst);
}

inline void inverseFloatBlock(const Vek16s* src, Vek16u* dst, int dstStep, const Vek32f* table) {
    FloatLane x[8];
    for (int r = 0; r < 8; ++r)
        x[r] = (toFloat(loadRow(src + 8 * r)) * loadFloats(table + 8 * r)) * loadFloats(kInversePreScale + 8 * r);
    inverseFloat8(x);
    transposeFloats(x);
    inverseFloat8(x);
    transposeFloats(x);
    const bool nearest = roundsToNearest();
    for (int r = 0; r < 8; ++r)
        store(jpeg::blockRow(dst, dstStep, r), roundedRow(x[r] + splatFloat(2048.0f), nearest, 0, 4095));
}

// ---- the level shifts, 8 samples a block (a JPEG block's row) -------------------

inline void add128Row(const Vek16s* src, Vek8u* dst, int n) {
    const __m128i bias = _mm_set1_epi16(128);
    forEachBlock<8>(
        static_cast<size_t>(n),
        [&](Vek8u* out, const Vek16s* in) {
            const __m128i words = _mm_adds_epi16(load128i(in), bias);
            storeEightBytes(out, _mm_packus_epi16(words, words));
        },
        dst, src);
}

inline void sub128Row(const Vek8u* src, Vek16s* dst, int n) {
    const __m128i bias = _mm_set1_epi16(128);
    forEachBlock<8>(
        static_cast<size_t>(n),
        [&](Vek16s* out, const Vek8u* in) {
            const __m128i bytes = _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(in)));
            store(out, _mm_sub_epi16(_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), bias));
        },
        dst, src);
}

}  // namespace

#endif
