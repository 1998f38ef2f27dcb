// Lossless JPEG row kernels for the vector levels, written once over the
// vector type: __m128i (SSE2), __m256i (AVX2) or __m512i (AVX-512 BW), each
// lane one 16-bit sample.
//
// The differences are element-wise: the left and above-left neighbours are
// the same rows read one sample earlier.  Predictors 5 to 7 halve a 17-bit
// sum or difference; in 16-bit lanes that is
//   floor((x + y) / 2) = (x & y) + ((x ^ y) >> 1)
//   floor((x - y) / 2) = (x >> 1) - (y >> 1) - (~x & y & 1)
// with arithmetic shifts, exact (the first fits 16 bits, the second is
// right modulo 2^16, which is all a wrapping difference keeps).
//
// Reconstruction: predictors 2 and 3 are element-wise too.  Predictors 1, 4
// and 5 add the left neighbour unchanged, so modulo 2^16 the row is a
// prefix sum of the differences plus the above-row terms: each vector is
// summed in log2(lanes) shifted adds and the running total carried to the
// next, one add on the serial path per vector.  Predictors 6 and 7 halve a
// sum that holds the reconstructed left neighbour, so they run the serial
// loop of lossless_rows.h.
//
// Included inside a level's namespace after <immintrin.h>, <string.h> and
// lossless_rows.h; internal linkage.
#ifndef VEK_JPEG_LOSSLESS_SIMD_H
#define VEK_JPEG_LOSSLESS_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// ---- 16-bit lane words, by vector type -------------------------------------------
inline __m128i add16(__m128i a, __m128i b) { return _mm_add_epi16(a, b); }
inline __m128i sub16(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
inline __m128i halfSigned16(__m128i a) { return _mm_srai_epi16(a, 1); }
inline __m128i and16(__m128i a, __m128i b) { return _mm_and_si128(a, b); }
inline __m128i xor16(__m128i a, __m128i b) { return _mm_xor_si128(a, b); }
inline void broadcast16(Vek16s x, __m128i& v) { v = broadcast128(x); }
inline void loadVector(const Vek16s* p, __m128i& v) { v = load128i(p); }

// Lane i holds the sum of lanes 0..i.
inline __m128i prefixSum16(__m128i x) {
    x = _mm_add_epi16(x, _mm_slli_si128(x, 2));
    x = _mm_add_epi16(x, _mm_slli_si128(x, 4));
    return _mm_add_epi16(x, _mm_slli_si128(x, 8));
}
// The last lane in every lane.
inline __m128i broadcastLast16(__m128i x) {
    const __m128i high = _mm_shufflehi_epi16(x, 0xFF);
    return _mm_unpackhi_epi64(high, high);
}

#ifdef __AVX2__
inline __m256i add16(__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }
inline __m256i sub16(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }
inline __m256i halfSigned16(__m256i a) { return _mm256_srai_epi16(a, 1); }
inline __m256i and16(__m256i a, __m256i b) { return _mm256_and_si256(a, b); }
inline __m256i xor16(__m256i a, __m256i b) { return _mm256_xor_si256(a, b); }
inline void broadcast16(Vek16s x, __m256i& v) { v = broadcast256(x); }
inline void loadVector(const Vek16s* p, __m256i& v) { v = load256i(p); }

// Each 128-bit half summed alone, then the low half's total added to the
// high half.
inline __m256i prefixSum16(__m256i x) {
    x = _mm256_add_epi16(x, _mm256_slli_si256(x, 2));
    x = _mm256_add_epi16(x, _mm256_slli_si256(x, 4));
    x = _mm256_add_epi16(x, _mm256_slli_si256(x, 8));
    const __m256i high = _mm256_shufflehi_epi16(x, 0xFF);
    const __m256i halfTotals = _mm256_unpackhi_epi64(high, high);
    return _mm256_add_epi16(x, _mm256_permute2x128_si256(halfTotals, halfTotals, 0x08));  // (0, low total)
}
inline __m256i broadcastLast16(__m256i x) { return _mm256_permute4x64_epi64(_mm256_shufflehi_epi16(x, 0xFF), 0xFF); }
#endif

#ifdef __AVX512BW__
inline __m512i add16(__m512i a, __m512i b) { return _mm512_add_epi16(a, b); }
inline __m512i sub16(__m512i a, __m512i b) { return _mm512_sub_epi16(a, b); }
inline __m512i halfSigned16(__m512i a) { return _mm512_srai_epi16(a, 1); }
inline __m512i and16(__m512i a, __m512i b) { return _mm512_and_si512(a, b); }
inline __m512i xor16(__m512i a, __m512i b) { return _mm512_xor_si512(a, b); }
inline void broadcast16(Vek16s x, __m512i& v) { v = broadcast512(x); }
inline void loadVector(const Vek16s* p, __m512i& v) { v = load512i(p); }

// Each 128-bit quarter summed alone, then the totals of the quarters below
// added to each quarter.  The masked forms of the permutations stand for the
// plain ones, whose undefined operand GCC 12 warns about.
inline __m512i prefixSum16(__m512i x) {
    x = _mm512_add_epi16(x, _mm512_bslli_epi128(x, 2));
    x = _mm512_add_epi16(x, _mm512_bslli_epi128(x, 4));
    x = _mm512_add_epi16(x, _mm512_bslli_epi128(x, 8));
    const __m512i lastOfQuarter =
        _mm512_set_epi64(0x001F001F001F001F, 0x001F001F001F001F, 0x0017001700170017, 0x0017001700170017,
                         0x000F000F000F000F, 0x000F000F000F000F, 0x0007000700070007, 0x0007000700070007);
    const __m512i quarterTotals = _mm512_permutexvar_epi16(lastOfQuarter, x);
    const __m512i zero = _mm512_setzero_si512();
    // Totals t0..t3 of the quarters: each quarter adds t below it, the
    // shifts up by one, two and three quarters of (0, t0, t1, t2).
    const __m512i up1 = _mm512_maskz_alignr_epi64(0xFF, quarterTotals, zero, 6);  // (0, t0, t1, t2)
    const __m512i below = _mm512_add_epi16(_mm512_add_epi16(up1, _mm512_maskz_alignr_epi64(0xFF, up1, zero, 6)),
                                           _mm512_maskz_alignr_epi64(0xFF, up1, zero, 4));
    return _mm512_add_epi16(x, below);
}
inline __m512i broadcastLast16(__m512i x) { return _mm512_permutexvar_epi16(_mm512_set1_epi16(31), x); }
#endif

// ---- the predictors, 16 bits a lane ----------------------------------------------------

template <class V>
inline V halfSum(V x, V y) {
    return add16(and16(x, y), halfSigned16(xor16(x, y)));
}
template <class V>
inline V halfDifference(V x, V y) {
    V one;
    broadcast16(1, one);
    return sub16(sub16(halfSigned16(x), halfSigned16(y)), and16(and16(xor16(x, y), y), one));  // ~x & y & 1
}

template <int Predictor, class V>
inline V predictVector(V a, V b, V c) {
    if constexpr (Predictor == 1) return a;
    if constexpr (Predictor == 2) return b;
    if constexpr (Predictor == 3) return c;
    if constexpr (Predictor == 4) return sub16(add16(a, b), c);
    if constexpr (Predictor == 5) return add16(a, halfDifference(b, c));
    if constexpr (Predictor == 6) return add16(b, halfDifference(a, c));
    if constexpr (Predictor == 7) return halfSum(a, b);
}

template <class V>
constexpr size_t kLanes16 = sizeof(V) / 2;

template <class V>
inline V loadLanes(const Vek16s* p) {
    V v;
    loadVector(p, v);
    return v;
}

// ---- the rows --------------------------------------------------------------------

// Samples 1..n-1: dst[i] = src[i] - prediction.  Each block reads the
// rows at i (current, above) and at i - 1 (left, above-left).
template <class V, int Predictor>
void diffRestVector(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    if (n < 2) return;
    constexpr size_t N = kLanes16<V>;
    if constexpr (Predictor == 1) {
        forEachBlock<N, 2>(
            n - 1,
            [](Vek16s* d, const Vek16s* s, const Vek16s* a) { store(d, sub16(loadLanes<V>(s), loadLanes<V>(a))); },
            dst + 1, src + 1, src);
    } else {
        forEachBlock<N, 2>(
            n - 1,
            [](Vek16s* d, const Vek16s* s, const Vek16s* a, const Vek16s* b, const Vek16s* c) {
                const V p = predictVector<Predictor>(loadLanes<V>(a), loadLanes<V>(b), loadLanes<V>(c));
                store(d, sub16(loadLanes<V>(s), p));
            },
            dst + 1, src + 1, src, prev + 1, prev);
    }
}

// The terms of the reconstruction that do not hold the left neighbour:
// for predictors 1, 4 and 5 the reconstructed sample is the left one plus
// this; for 2 and 3 it is the sample itself.
template <int Predictor, class V>
inline V aboveTerms(V s, V b, V c) {
    if constexpr (Predictor == 1) return s;
    if constexpr (Predictor == 2) return add16(s, b);
    if constexpr (Predictor == 3) return add16(s, c);
    if constexpr (Predictor == 4) return add16(s, sub16(b, c));
    if constexpr (Predictor == 5) return add16(s, halfDifference(b, c));
}

// Samples 1..n-1 given dst[0]; dst may be src (each block is read before
// it is written).
template <class V, int Predictor>
void reconstructRestVector(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    if constexpr (Predictor >= 6) {
        reconstructRestScalar<Predictor>(src, prev, dst, n);
    } else {
        if (n < 2) return;
        constexpr size_t N = kLanes16<V>;
        if constexpr (Predictor == 1) {
            V carry;
            broadcast16(dst[0], carry);  // the running total: the last sample reconstructed
            forEachBlock<N>(
                n - 1,
                [&carry](Vek16s* d, const Vek16s* s) {
                    const V sums = prefixSum16(loadLanes<V>(s));
                    store(d, add16(sums, carry));
                    carry = add16(carry, broadcastLast16(sums));
                },
                dst + 1, src + 1);
        } else if constexpr (Predictor == 2 || Predictor == 3) {
            forEachBlock<N, 2>(
                n - 1,
                [](Vek16s* d, const Vek16s* s, const Vek16s* b, const Vek16s* c) {
                    store(d, aboveTerms<Predictor>(loadLanes<V>(s), loadLanes<V>(b), loadLanes<V>(c)));
                },
                dst + 1, src + 1, prev + 1, prev);
        } else {
            V carry;
            broadcast16(dst[0], carry);
            forEachBlock<N>(
                n - 1,
                [&carry](Vek16s* d, const Vek16s* s, const Vek16s* b, const Vek16s* c) {
                    const V sums =
                        prefixSum16(aboveTerms<Predictor>(loadLanes<V>(s), loadLanes<V>(b), loadLanes<V>(c)));
                    store(d, add16(sums, carry));
                    carry = add16(carry, broadcastLast16(sums));
                },
                dst + 1, src + 1, prev + 1, prev);
        }
    }
}

}  // namespace

// The level's kernels over its vector type.
#define VEK_LOSSLESS_VECTOR_KERNELS(V)                                                   \
    namespace {                                                                          \
    template <int P>                                                                     \
    void diffRest(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {        \
        diffRestVector<V, P>(src, prev, dst, n);                                         \
    }                                                                                    \
    template <int P>                                                                     \
    void reconstructRest(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) { \
        reconstructRestVector<V, P>(src, prev, dst, n);                                  \
    }                                                                                    \
    }

#endif
