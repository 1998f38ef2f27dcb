// MPEG-2 quantisation for the SIMD levels: eight coefficients a vector.
//
// Forward: the float path converts four coefficients at a time, multiplies
// in the order of the plain level ((c * scale) * reciprocal), turns NaN into
// 0, clamps to +-2047 and truncates (cvttps2dq); the flat path forms c * r
// exactly with pmaddwd, r split into two halves that fit a signed 16-bit
// lane.  Inverse: 32-bit products (pmulld from SSE4.1, two pmuludq before),
// divisions truncated by adding the divisor less one to negative values
// before the arithmetic shift.  Counts and the parity of the sum are kept
// in 16-bit lanes.
//
// Included inside a level's namespace after <immintrin.h> and
// core/simd_vocabulary.h; internal linkage.
#ifndef VEK_VIDEO_QUANT_SIMD_H
#define VEK_VIDEO_QUANT_SIMD_H

namespace {

// The sum of the eight 16-bit lanes (as signed values).
inline int sumWords(__m128i v) {
    v = _mm_madd_epi16(v, _mm_set1_epi16(1));
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0x4E));
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0xB1));
    return _mm_cvtsi128_si32(v);
}

// 16-bit lanes sign-extended to 32 bits.
inline __m128i widenLo16(__m128i x) { return _mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16); }
inline __m128i widenHi16(__m128i x) { return _mm_srai_epi32(_mm_unpackhi_epi16(x, x), 16); }

// x / 2^Shift, truncating toward zero.
template <int Shift>
inline __m128i divideTruncating(__m128i x) {
    const __m128i bias = _mm_srli_epi32(_mm_srai_epi32(x, 31), 32 - Shift);  // 2^Shift - 1 where negative
    return _mm_srai_epi32(_mm_add_epi32(x, bias), Shift);
}

// The low 32 bits of each product.
inline __m128i multiplyLow32(__m128i a, __m128i b) {
#ifdef __SSE4_1__
    return _mm_mullo_epi32(a, b);
#else
    const __m128i even = _mm_mul_epu32(a, b);
    const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a, 32), _mm_srli_epi64(b, 32));
    return _mm_unpacklo_epi32(_mm_shuffle_epi32(even, 0x08), _mm_shuffle_epi32(odd, 0x08));
#endif
}

inline __m128i clampWords(__m128i x, short lo, short hi) {
    return _mm_min_epi16(_mm_max_epi16(x, _mm_set1_epi16(lo)), _mm_set1_epi16(hi));
}

// Four floats truncated toward zero within +-2047; NaN gives 0.
inline __m128i truncateForward(__m128 x) {
    const __m128 ordered = _mm_and_ps(x, _mm_cmpord_ps(x, x));
    return _mm_cvttps_epi32(_mm_min_ps(_mm_max_ps(ordered, _mm_set1_ps(-2047.0f)), _mm_set1_ps(2047.0f)));
}

inline int quantFloat(Vek16s* block, int first, float scale, const Vek32f* reciprocals) {
    const Vek16s dc = block[0];
    const __m128 s = _mm_set1_ps(scale);
    __m128i zeros = _mm_setzero_si128();
    for (int i = 0; i < 64; i += 8) {
        const __m128i c = load128i(block + i);
        const __m128 lo = _mm_mul_ps(_mm_mul_ps(_mm_cvtepi32_ps(widenLo16(c)), s), load128f(reciprocals + i));
        const __m128 hi = _mm_mul_ps(_mm_mul_ps(_mm_cvtepi32_ps(widenHi16(c)), s), load128f(reciprocals + i + 4));
        const __m128i q = _mm_packs_epi32(truncateForward(lo), truncateForward(hi));
        store(block + i, q);
        zeros = _mm_sub_epi16(zeros, _mm_cmpeq_epi16(q, _mm_setzero_si128()));
    }
    int count = 64 - sumWords(zeros);
    if (first == 1) {
        count -= block[0] != 0;
        block[0] = dc;
    }
    return count;
}

inline int quantFlat(Vek16s* block, int reciprocal) {
    const int low = reciprocal / 2, high = reciprocal - low;  // each at most 16384
    const __m128i halves = _mm_set1_epi32(high << 16 | low);
    __m128i zeros = _mm_setzero_si128();
    for (int i = 0; i < 64; i += 8) {
        const __m128i c = load128i(block + i);
        const __m128i lo = _mm_madd_epi16(_mm_unpacklo_epi16(c, c), halves);  // c * r, exact
        const __m128i hi = _mm_madd_epi16(_mm_unpackhi_epi16(c, c), halves);
        const __m128i q = clampWords(_mm_packs_epi32(divideTruncating<16>(lo), divideTruncating<16>(hi)), -2047, 2047);
        store(block + i, q);
        zeros = _mm_sub_epi16(zeros, _mm_cmpeq_epi16(q, _mm_setzero_si128()));
    }
    return 64 - sumWords(zeros);
}

// v for eight coefficients from the 32-bit products of each half.
template <int Shift, class Product>
inline __m128i dequantWords(__m128i c, Product product) {
    const __m128i lo = divideTruncating<Shift>(product(widenLo16(c), 0));
    const __m128i hi = divideTruncating<Shift>(product(widenHi16(c), 4));
    return clampWords(_mm_packs_epi32(lo, hi), -2048, 2047);
}

inline int dequantNonIntra(Vek16s* block, int qp, const Vek16s* weights) {
    const __m128i q = _mm_set1_epi32(qp), zero = _mm_setzero_si128();
    __m128i sum = zero;
    for (int i = 0; i < 64; i += 8) {
        const __m128i c = load128i(block + i);
        // 2c + sign(c): the compare masks are -1 where they hold.
        const __m128i sign = _mm_sub_epi16(_mm_cmpgt_epi16(zero, c), _mm_cmpgt_epi16(c, zero));
        const __m128i signs[2] = {widenLo16(sign), widenHi16(sign)};
        __m128i v;
        if (weights) {
            const __m128i w = load128i(weights + i);
            const __m128i ws[2] = {widenLo16(w), widenHi16(w)};
            v = dequantWords<5>(c, [&](__m128i x, int half) {
                const __m128i twice = _mm_add_epi32(_mm_add_epi32(x, x), signs[half / 4]);
                return multiplyLow32(multiplyLow32(twice, q), ws[half / 4]);
            });
        } else {
            v = dequantWords<1>(c, [&](__m128i x, int half) {
                return multiplyLow32(q, _mm_add_epi32(_mm_add_epi32(x, x), signs[half / 4]));
            });
        }
        store(block + i, v);
        sum = _mm_add_epi16(sum, v);
    }
    return sumWords(sum) & 1;
}

inline int dequantIntra(Vek16s* block, int qp, const Vek16s* weights) {
    const Vek16s dc = block[0];
    const __m128i q = _mm_set1_epi32(qp);
    __m128i sum = _mm_setzero_si128();
    for (int i = 0; i < 64; i += 8) {
        const __m128i w = load128i(weights + i);
        const __m128i ws[2] = {widenLo16(w), widenHi16(w)};
        const __m128i v = dequantWords<5>(load128i(block + i), [&](__m128i x, int half) {
            return multiplyLow32(multiplyLow32(_mm_add_epi32(x, x), q), ws[half / 4]);
        });
        store(block + i, v);
        sum = _mm_add_epi16(sum, v);
    }
    const int parity = (sumWords(sum) - block[0] + dc) & 1;
    block[0] = dc;
    return parity;
}

}  // namespace

#endif
