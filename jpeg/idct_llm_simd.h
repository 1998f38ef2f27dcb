// The accurate integer inverse DCT of the libjpeg decoders for the vector
// levels (SSE2, AVX2); the rules are idct_llm_plain.cpp's.
//
// Included by a level's translation unit inside its namespace after
// jpeg/dct_simd.h, whose eight 32-bit lanes (Lane) hold the products and
// sums.  A pass's eight inputs x0..x7 are 16-bit words, one column (pass
// 1) or row (pass 2) a lane, held in pairs (x_k, x_k+4): one 256-bit
// register from AVX2, two 128-bit ones below.  Interleaved into 32-bit
// lanes, each pair is multiplied by a pair of factors with one pmaddwd, so
// every rotation, with the sums of inputs that feed it folded into its
// factors, is four such products (a product never needs more than 16 bits
// a side); the results pack back to pairs, and a transpose of pairs gives
// pairs again.
#ifndef VEK_JPEG_IDCT_LLM_SIMD_H
#define VEK_JPEG_IDCT_LLM_SIMD_H

namespace {

// Factor pairs (a, b) for pmaddwd: lane = low word * a + high word * b.
inline constexpr int32_t factorPair(int a, int b) { return int32_t(uint32_t(a & 0xFFFF) | (uint32_t(b) << 16)); }

#ifdef __AVX2__
// Eight words x_k in the low half, x_k+4 in the high one.
struct Rows2 {
    __m256i v;
};
inline Rows2 loadDequantised(const Vek16s* coef, const Vek16u* table, int k) {
    const __m256i c =
        _mm256_inserti128_si256(_mm256_castsi128_si256(load128i(coef + 8 * k)), load128i(coef + 8 * k + 32), 1);
    const __m256i q =
        _mm256_inserti128_si256(_mm256_castsi128_si256(load128i(table + 8 * k)), load128i(table + 8 * k + 32), 1);
    const __m256i lo = _mm256_mullo_epi16(c, q), hi = _mm256_mulhi_epi16(c, q);
    return {_mm256_packs_epi32(_mm256_unpacklo_epi16(lo, hi), _mm256_unpackhi_epi16(lo, hi))};
}
// Lane c: x_k[c] in the low word, x_k+4[c] in the high one.
inline Lane pairs(Rows2 y) {
    const __m256i order = _mm256_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15,  //
                                           0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
    return {_mm256_shuffle_epi8(_mm256_permute4x64_epi64(y.v, _MM_SHUFFLE(3, 1, 2, 0)), order)};
}
inline Lane multiplyPairs(Lane p, int32_t factors) { return {_mm256_madd_epi16(p.v, _mm256_set1_epi32(factors))}; }
// Two results saturated to words: a low, b high.
inline Rows2 packPair(Lane a, Lane b) {
    return {_mm256_permute4x64_epi64(_mm256_packs_epi32(a.v, b.v), _MM_SHUFFLE(3, 1, 2, 0))};
}
// y[k] = (a_k, a_k+4) to (b_k, b_k+4), b_k[j] = a_j[k].
inline void transposePairs(Rows2* y) {
    const __m256i t0 = _mm256_unpacklo_epi16(y[0].v, y[1].v), t1 = _mm256_unpackhi_epi16(y[0].v, y[1].v);
    const __m256i t2 = _mm256_unpacklo_epi16(y[2].v, y[3].v), t3 = _mm256_unpackhi_epi16(y[2].v, y[3].v);
    const __m256i u0 = _mm256_unpacklo_epi32(t0, t2), u1 = _mm256_unpackhi_epi32(t0, t2);
    const __m256i u2 = _mm256_unpacklo_epi32(t1, t3), u3 = _mm256_unpackhi_epi32(t1, t3);
    constexpr int kHalves = _MM_SHUFFLE(3, 1, 2, 0);
    y[0].v = _mm256_permute4x64_epi64(_mm256_unpacklo_epi64(u0, u2), kHalves);
    y[1].v = _mm256_permute4x64_epi64(_mm256_unpackhi_epi64(u0, u2), kHalves);
    y[2].v = _mm256_permute4x64_epi64(_mm256_unpacklo_epi64(u1, u3), kHalves);
    y[3].v = _mm256_permute4x64_epi64(_mm256_unpackhi_epi64(u1, u3), kHalves);
}
// Rows k, k+1 (low) and k+4, k+5 (high) to bytes, clamped to -128..127 by
// the signed pack, plus 128.
inline void storeRows(Rows2 a, Rows2 b, Vek8u* dst, int dstStep, int k) {
    const __m256i bytes = _mm256_xor_si256(_mm256_packs_epi16(a.v, b.v), _mm256_set1_epi8(static_cast<char>(0x80)));
    const __m128i low = _mm256_castsi256_si128(bytes), high = _mm256_extracti128_si256(bytes, 1);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k), low);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 1), _mm_unpackhi_epi64(low, low));
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 4), high);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 5), _mm_unpackhi_epi64(high, high));
}
#else
struct Rows2 {
    __m128i lo, hi;
};
inline Rows2 loadDequantised(const Vek16s* coef, const Vek16u* table, int k) {
    return {dequantiseRow(coef + 8 * k, table + 8 * k), dequantiseRow(coef + 8 * k + 32, table + 8 * k + 32)};
}
inline Lane pairs(Rows2 y) { return {_mm_unpacklo_epi16(y.lo, y.hi), _mm_unpackhi_epi16(y.lo, y.hi)}; }
inline Lane multiplyPairs(Lane p, int32_t factors) {
    const __m128i k = _mm_set1_epi32(factors);
    return {_mm_madd_epi16(p.lo, k), _mm_madd_epi16(p.hi, k)};
}
inline Rows2 packPair(Lane a, Lane b) { return {_mm_packs_epi32(a.lo, a.hi), _mm_packs_epi32(b.lo, b.hi)}; }
inline void transpose4Words(__m128i* x) {
    __m128i a[8], b[8];
    for (int i = 0; i < 8; i += 2) {
        a[i] = _mm_unpacklo_epi16(x[i], x[i + 1]);
        a[i + 1] = _mm_unpackhi_epi16(x[i], x[i + 1]);
    }
    for (int i = 0; i < 8; i += 4) {
        b[i] = _mm_unpacklo_epi32(a[i], a[i + 2]);
        b[i + 1] = _mm_unpackhi_epi32(a[i], a[i + 2]);
        b[i + 2] = _mm_unpacklo_epi32(a[i + 1], a[i + 3]);
        b[i + 3] = _mm_unpackhi_epi32(a[i + 1], a[i + 3]);
    }
    for (int i = 0; i < 4; ++i) {
        x[2 * i] = _mm_unpacklo_epi64(b[i], b[i + 4]);
        x[2 * i + 1] = _mm_unpackhi_epi64(b[i], b[i + 4]);
    }
}
inline void transposePairs(Rows2* y) {
    __m128i x[8];
    for (int k = 0; k < 4; ++k) x[k] = y[k].lo, x[k + 4] = y[k].hi;
    transpose4Words(x);
    for (int k = 0; k < 4; ++k) y[k] = {x[k], x[k + 4]};
}
inline void storeRows(Rows2 a, Rows2 b, Vek8u* dst, int dstStep, int k) {
    const __m128i bias = _mm_set1_epi8(static_cast<char>(0x80));
    const __m128i low = _mm_xor_si128(_mm_packs_epi16(a.lo, b.lo), bias);
    const __m128i high = _mm_xor_si128(_mm_packs_epi16(a.hi, b.hi), bias);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k), low);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 1), _mm_srli_si128(low, 8));
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 4), high);
    storeEightBytes(jpeg::blockRow(dst, dstStep, k + 5), _mm_srli_si128(high, 8));
}
#endif

// ---- one pass ---------------------------------------------------------------------

// The 1-D inverse over y[k] = (x_k, x_k+4), in place: results descaled by
// Shift bits (the rounding term rides on the DC terms) and saturated.
// The factors are the plain flow's with its input sums multiplied out:
// e.g. o0 = x7 * -4927 + x1 * -7373 + (x7 + x3) * -6436 + (x5 + x1) * 9633
// = (x3, x7) . (-6436, -11363) + (x1, x5) . (2260, 9633).
template <int Shift>
inline void inverseLlm8(Rows2* y) {
    const Lane p04 = pairs(y[0]), p15 = pairs(y[1]), p26 = pairs(y[2]), p37 = pairs(y[3]);
    const Lane round = Lane::splat(1 << (Shift - 1));
    const Lane even0 = multiplyPairs(p04, factorPair(8192, 8192)) + round;
    const Lane even1 = multiplyPairs(p04, factorPair(8192, -8192)) + round;
    const Lane even3 = multiplyPairs(p26, factorPair(10703, 4433));
    const Lane even2 = multiplyPairs(p26, factorPair(4433, -10704));
    const Lane tmp10 = even0 + even3, tmp13 = even0 - even3;
    const Lane tmp11 = even1 + even2, tmp12 = even1 - even2;
    const Lane odd0 = multiplyPairs(p37, factorPair(-6436, -11363)) + multiplyPairs(p15, factorPair(2260, 9633));
    const Lane odd3 = multiplyPairs(p37, factorPair(9633, 2260)) + multiplyPairs(p15, factorPair(11363, 6437));
    const Lane odd1 = multiplyPairs(p37, factorPair(-11362, 9633)) + multiplyPairs(p15, factorPair(6437, 2261));
    const Lane odd2 = multiplyPairs(p37, factorPair(-2259, -6436)) + multiplyPairs(p15, factorPair(9633, -11362));
    y[0] = packPair(sra<Shift>(tmp10 + odd3), sra<Shift>(tmp13 - odd0));
    y[1] = packPair(sra<Shift>(tmp11 + odd2), sra<Shift>(tmp12 - odd1));
    y[2] = packPair(sra<Shift>(tmp12 + odd1), sra<Shift>(tmp11 - odd2));
    y[3] = packPair(sra<Shift>(tmp13 + odd0), sra<Shift>(tmp10 - odd3));
}

// ---- the block ----------------------------------------------------------------------

// Dequantised rows, pass 1 down the columns, a transpose, pass 2 along the
// rows, a transpose back, the samples.
inline void inverseLlmBlock(const Vek16s* coef, const Vek16u* table, Vek8u* dst, int dstStep) {
    Rows2 y[4];
    for (int k = 0; k < 4; ++k) y[k] = loadDequantised(coef, table, k);
    inverseLlm8<11>(y);
    transposePairs(y);
    inverseLlm8<18>(y);
    transposePairs(y);
    storeRows(y[0], y[1], dst, dstStep, 0);
    storeRows(y[2], y[3], dst, dstStep, 2);
}

}  // namespace

#endif
