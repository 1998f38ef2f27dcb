// The accurate integer inverse DCT of the libjpeg decoders for the vector
// levels (SSE2, AVX2); the rules are idct_llm_plain.cpp's.
//
// Included by a level's translation unit inside its namespace after
// jpeg/dct_simd.h, whose eight 32-bit lanes (Lane) hold the products and
// sums.  A pass's eight inputs are 16-bit words, one column (pass 1) or
// row (pass 2) a lane, in one 128-bit register each; every rotation is one
// pmaddwd of two inputs interleaved into 32-bit pairs by a pair of factors,
// so a product never needs more than 16 bits a side.  SSE2 holds a Lane in
// two registers; AVX2 in one, so the 32-bit half of the pass costs half.
#ifndef VEK_JPEG_IDCT_LLM_SIMD_H
#define VEK_JPEG_IDCT_LLM_SIMD_H

namespace {

// ---- 16-bit words into 32-bit lanes and back ------------------------------------

// Factor pairs (a, b) for pmaddwd: lane = low word * a + high word * b.
inline constexpr int32_t factorPair(int a, int b) { return int32_t(uint32_t(a & 0xFFFF) | (uint32_t(b) << 16)); }

#ifdef __AVX2__
// Lane c: a[c] in the low word, b[c] in the high one.
inline Lane interleave(__m128i a, __m128i b) {
    const __m256i both = _mm256_permute4x64_epi64(_mm256_set_m128i(b, a), _MM_SHUFFLE(3, 1, 2, 0));
    const __m256i order = _mm256_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15,  //
                                           0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
    return {_mm256_shuffle_epi8(both, order)};
}
inline Lane multiplyPairs(Lane pairs, int32_t factors) {
    return {_mm256_madd_epi16(pairs.v, _mm256_set1_epi32(factors))};
}
// a[c] * 8192 plus a constant.
inline Lane scaledUp(__m128i a, Lane add) {
    return {_mm256_add_epi32(_mm256_slli_epi32(_mm256_cvtepi16_epi32(a), 13), add.v)};
}
#else
inline Lane interleave(__m128i a, __m128i b) { return {_mm_unpacklo_epi16(a, b), _mm_unpackhi_epi16(a, b)}; }
inline Lane multiplyPairs(Lane pairs, int32_t factors) {
    const __m128i k = _mm_set1_epi32(factors);
    return {_mm_madd_epi16(pairs.lo, k), _mm_madd_epi16(pairs.hi, k)};
}
// The word into the high half of the lane, then 3 bits back: a[c] * 8192.
inline Lane scaledUp(__m128i a, Lane add) {
    const __m128i zero = _mm_setzero_si128();
    return {_mm_add_epi32(_mm_srai_epi32(_mm_unpacklo_epi16(zero, a), 3), add.lo),
            _mm_add_epi32(_mm_srai_epi32(_mm_unpackhi_epi16(zero, a), 3), add.hi)};
}
#endif

inline void transposeWords(__m128i* x) {
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

// ---- one pass ---------------------------------------------------------------------

// The 1-D inverse across eight registers of words, in place, descaled by
// Shift bits (the rounding term rides on the DC terms) and saturated.
template <int Shift>
inline void inverseLlm8(__m128i* x) {
    const Lane round = Lane::splat(1 << (Shift - 1));
    const Lane p26 = interleave(x[2], x[6]);
    const Lane even3 = multiplyPairs(p26, factorPair(10703, 4433));
    const Lane even2 = multiplyPairs(p26, factorPair(4433, -10704));
    const Lane even0 = scaledUp(_mm_adds_epi16(x[0], x[4]), round);
    const Lane even1 = scaledUp(_mm_subs_epi16(x[0], x[4]), round);
    const Lane tmp10 = even0 + even3, tmp13 = even0 - even3;
    const Lane tmp11 = even1 + even2, tmp12 = even1 - even2;
    const Lane pz = interleave(_mm_adds_epi16(x[7], x[3]), _mm_adds_epi16(x[5], x[1]));
    const Lane r3 = multiplyPairs(pz, factorPair(-6436, 9633));
    const Lane r4 = multiplyPairs(pz, factorPair(9633, 6437));
    const Lane p71 = interleave(x[7], x[1]);
    const Lane odd0 = multiplyPairs(p71, factorPair(-4927, -7373)) + r3;
    const Lane odd3 = multiplyPairs(p71, factorPair(-7373, 4926)) + r4;
    const Lane p53 = interleave(x[5], x[3]);
    const Lane odd1 = multiplyPairs(p53, factorPair(-4176, -20995)) + r4;
    const Lane odd2 = multiplyPairs(p53, factorPair(-20995, 4177)) + r3;
    x[0] = packSaturated(sra<Shift>(tmp10 + odd3));
    x[7] = packSaturated(sra<Shift>(tmp10 - odd3));
    x[1] = packSaturated(sra<Shift>(tmp11 + odd2));
    x[6] = packSaturated(sra<Shift>(tmp11 - odd2));
    x[2] = packSaturated(sra<Shift>(tmp12 + odd1));
    x[5] = packSaturated(sra<Shift>(tmp12 - odd1));
    x[3] = packSaturated(sra<Shift>(tmp13 + odd0));
    x[4] = packSaturated(sra<Shift>(tmp13 - odd0));
}

// ---- the block ----------------------------------------------------------------------

// Dequantised rows (dequantiseRow of dct_simd.h saturates), pass 1 down the
// columns, a transpose, pass 2 along the rows, a transpose back; then two
// rows a register clamped to -128..127 by the signed byte pack, plus 128.
inline void inverseLlmBlock(const Vek16s* coef, const Vek16u* table, Vek8u* dst, int dstStep) {
    __m128i x[8];
    for (int r = 0; r < 8; ++r) x[r] = dequantiseRow(coef + 8 * r, table + 8 * r);
    inverseLlm8<11>(x);
    transposeWords(x);
    inverseLlm8<18>(x);
    transposeWords(x);
    const __m128i bias = _mm_set1_epi8(static_cast<char>(0x80));
    for (int r = 0; r < 8; r += 2) {
        const __m128i bytes = _mm_xor_si128(_mm_packs_epi16(x[r], x[r + 1]), bias);
        storeEightBytes(jpeg::blockRow(dst, dstStep, r), bytes);
        storeEightBytes(jpeg::blockRow(dst, dstStep, r + 1), _mm_srli_si128(bytes, 8));
    }
}

}  // namespace

#endif
