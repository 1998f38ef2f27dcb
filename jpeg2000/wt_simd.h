// Wavelet step kernels for the SIMD levels, one template over the level's
// vector types.
//
// Included by each SIMD level's translation unit inside its namespace,
// after the level names its vectors (FloatVec; from SSE2 on IntVec too).
// Every kernel is element-wise over the block loop of core/simd_blocks.h,
// so a line of any length takes whole vectors from the caller's memory and
// its last, partial block through zeroed stack copies: no access passes
// the line, and every sample gets the instructions of its block.
//   5/3: in lanes of the sample's width, with the exact floor-halving words
//     of j2k_vectors.h (no widening, no overflow).
//   9/7 float: the plain level's operations in its order, lane by lane.
//   9/7 Q16, 16-bit: each constant C split as Chi * 65536 + Clo with Clo in
//     16 bits, so (CA a + CB (b + c) + 32768) >> 16 is
//     CAhi a + CBhi (b + c) + ((CAlo a + CBlo b + CBlo c + 32768) >> 16),
//     the bracket formed by pmaddwd on pairs of samples (the rounding half
//     riding in as 2 * 16384), exact in 32 bits for every constant used
//     (checked at compile time); a saturating pack gives the 16-bit result.
//   9/7 Q16, 32-bit: 64-bit products of the lanes (j2k_vectors.h), the
//     rounded sum's bits 16..47 kept.
// split and merge take a line apart into its even and odd samples and put
// it back, with shuffles of the level's width.
#ifndef VEK_JPEG2000_WT_SIMD_H
#define VEK_JPEG2000_WT_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "jpeg2000/j2k_vectors.h"

namespace {

// ---- split and merge ------------------------------------------------------------------

// One vector of each: 2N samples of 32 bits (as float bits) apart and back.
inline void splitVectors(__m128 v0, __m128 v1, __m128& e, __m128& o) {
    e = _mm_shuffle_ps(v0, v1, _MM_SHUFFLE(2, 0, 2, 0));
    o = _mm_shuffle_ps(v0, v1, _MM_SHUFFLE(3, 1, 3, 1));
}
inline void mergeVectors(__m128 e, __m128 o, __m128& v0, __m128& v1) {
    v0 = _mm_unpacklo_ps(e, o);
    v1 = _mm_unpackhi_ps(e, o);
}
#ifdef __AVX2__
inline void splitVectors(__m256 v0, __m256 v1, __m256& e, __m256& o) {
    // in-lane shuffles leave [a0 a2 b0 b2 | a4 a6 b4 b6]; the 64-bit
    // permute puts the halves in order
    e = _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(v0, v1, 0x88)), 0xD8));
    o = _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(v0, v1, 0xDD)), 0xD8));
}
inline void mergeVectors(__m256 e, __m256 o, __m256& v0, __m256& v1) {
    const __m256 lo = _mm256_unpacklo_ps(e, o), hi = _mm256_unpackhi_ps(e, o);
    v0 = _mm256_permute2f128_ps(lo, hi, 0x20);
    v1 = _mm256_permute2f128_ps(lo, hi, 0x31);
}
#endif
#ifdef __AVX512F__
inline void splitVectors(__m512 v0, __m512 v1, __m512& e, __m512& o) {
    const __m512i evens = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    e = _mm512_permutex2var_ps(v0, evens, v1);
    o = _mm512_permutex2var_ps(v0, _mm512_add_epi32(evens, _mm512_set1_epi32(1)), v1);
}
inline void mergeVectors(__m512 e, __m512 o, __m512& v0, __m512& v1) {
    const __m512i lo = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    v0 = _mm512_permutex2var_ps(e, lo, o);
    v1 = _mm512_permutex2var_ps(e, _mm512_add_epi32(lo, _mm512_set1_epi32(8)), o);
}
#endif

#ifdef __SSE2__
// 2N samples of 16 bits apart and back.
inline void splitVectors(__m128i v0, __m128i v1, __m128i& e, __m128i& o) {
    e = _mm_packs_epi32(_mm_srai_epi32(_mm_slli_epi32(v0, 16), 16), _mm_srai_epi32(_mm_slli_epi32(v1, 16), 16));
    o = _mm_packs_epi32(_mm_srai_epi32(v0, 16), _mm_srai_epi32(v1, 16));
}
inline void mergeVectors(__m128i e, __m128i o, __m128i& v0, __m128i& v1) {
    v0 = _mm_unpacklo_epi16(e, o);
    v1 = _mm_unpackhi_epi16(e, o);
}
#endif
#ifdef __AVX2__
inline void splitVectors(__m256i v0, __m256i v1, __m256i& e, __m256i& o) {
    const __m256i ev = _mm256_packs_epi32(low16(v0), low16(v1)), od = _mm256_packs_epi32(sra32<16>(v0), sra32<16>(v1));
    e = _mm256_permute4x64_epi64(ev, 0xD8);
    o = _mm256_permute4x64_epi64(od, 0xD8);
}
inline void mergeVectors(__m256i e, __m256i o, __m256i& v0, __m256i& v1) {
    const __m256i lo = _mm256_unpacklo_epi16(e, o), hi = _mm256_unpackhi_epi16(e, o);
    v0 = _mm256_permute2x128_si256(lo, hi, 0x20);
    v1 = _mm256_permute2x128_si256(lo, hi, 0x31);
}
#endif
#ifdef __AVX512BW__
inline void splitVectors(__m512i v0, __m512i v1, __m512i& e, __m512i& o) {
    const __m512i evens = _mm512_set_epi16(62, 60, 58, 56, 54, 52, 50, 48, 46, 44, 42, 40, 38, 36, 34, 32, 30, 28, 26,
                                           24, 22, 20, 18, 16, 14, 12, 10, 8, 6, 4, 2, 0);
    e = _mm512_permutex2var_epi16(v0, evens, v1);
    o = _mm512_permutex2var_epi16(v0, _mm512_add_epi16(evens, _mm512_set1_epi16(1)), v1);
}
inline void mergeVectors(__m512i e, __m512i o, __m512i& v0, __m512i& v1) {
    const __m512i lo = _mm512_set_epi16(47, 15, 46, 14, 45, 13, 44, 12, 43, 11, 42, 10, 41, 9, 40, 8, 39, 7, 38, 6, 37,
                                        5, 36, 4, 35, 3, 34, 2, 33, 1, 32, 0);
    v0 = _mm512_permutex2var_epi16(e, lo, o);
    v1 = _mm512_permutex2var_epi16(e, _mm512_add_epi16(lo, _mm512_set1_epi16(16)), o);
}
#endif

// The vector a sample type is shuffled in: 32-bit samples as float bits.
template <class T>
struct ShuffleVec {
    using type = FloatVec;
    static type load(const T* p) { return loadF<FloatVec>(reinterpret_cast<const float*>(p)); }
};
#ifdef __SSE2__
template <>
struct ShuffleVec<Vek16s> {
    using type = IntVec;
    static type load(const Vek16s* p) { return loadI<IntVec>(p); }
};
#endif

template <class T>
void split(const T* x, size_t pairs, T* even, T* odd) {
    using S = ShuffleVec<T>;
    constexpr size_t N = sizeof(typename S::type) / sizeof(T);
    auto block = [](const T* in, T* e, T* o) {
        typename S::type ve, vo;
        splitVectors(S::load(in), S::load(in + N), ve, vo);
        store(e, ve), store(o, vo);
    };
    size_t i = 0;
    for (; i + N <= pairs; i += N) block(x + 2 * i, even + i, odd + i);
    if (i < pairs) {
        const size_t rest = pairs - i;
        T in[2 * N] = {}, e[N], o[N];
        memcpy(in, x + 2 * i, 2 * rest * sizeof(T));
        block(in, e, o);
        memcpy(even + i, e, rest * sizeof(T));
        memcpy(odd + i, o, rest * sizeof(T));
    }
}

template <class T>
void merge(const T* even, const T* odd, size_t pairs, T* x) {
    using S = ShuffleVec<T>;
    constexpr size_t N = sizeof(typename S::type) / sizeof(T);
    auto block = [](const T* e, const T* o, T* out) {
        typename S::type v0, v1;
        mergeVectors(S::load(e), S::load(o), v0, v1);
        store(out, v0), store(out + N, v1);
    };
    size_t i = 0;
    for (; i + N <= pairs; i += N) block(even + i, odd + i, x + 2 * i);
    if (i < pairs) {
        const size_t rest = pairs - i;
        T e[N] = {}, o[N] = {}, out[2 * N];
        memcpy(e, even + i, rest * sizeof(T));
        memcpy(o, odd + i, rest * sizeof(T));
        block(e, o, out);
        memcpy(x + 2 * i, out, 2 * rest * sizeof(T));
    }
}

// ---- 9/7 float ---------------------------------------------------------------------------

template <int Kind>
void liftF(float* out, const float* a, const float* b, const float* c, size_t n, float k1, float k2) {
    constexpr size_t N = sizeof(FloatVec) / sizeof(float);
    const FloatVec v1 = splatF<FloatVec>(k1), v2 = splatF<FloatVec>(k2);
    if constexpr (Kind == jpeg2000::kScale) {
        forEachBlock<N, 2>(
            n, [v1](float* o, const float* pa) { store(o, mul(v1, loadF<FloatVec>(pa))); }, out, a);
    } else {
        forEachBlock<N, 2>(
            n,
            [v1, v2](float* o, const float* pa, const float* pb, const float* pc) {
                const FloatVec va = loadF<FloatVec>(pa);
                const FloatVec q = mul(v2, add(loadF<FloatVec>(pb), loadF<FloatVec>(pc)));
                if constexpr (Kind == jpeg2000::kAdd)
                    store(o, add(va, q));
                else if constexpr (Kind == jpeg2000::kScaled)
                    store(o, add(mul(v1, va), q));
                else
                    store(o, mul(add(va, q), v1));
            },
            out, a, b, c);
    }
}

#ifdef __SSE2__
// ---- 5/3 ----------------------------------------------------------------------------------

template <class T, int Op>
void lift53(T* out, const T* a, const T* b, const T* c, size_t n) {
    constexpr size_t N = sizeof(IntVec) / sizeof(T);
    forEachBlock<N, 2>(
        n,
        [](T* o, const T* pa, const T* pb, const T* pc) {
            const IntVec va = loadI<IntVec>(pa), vb = loadI<IntVec>(pb), vc = loadI<IntVec>(pc);
            IntVec r;
            if constexpr (sizeof(T) == 2) {
                const IntVec half = floorHalfSum16(vb, vc);
                if constexpr (Op == jpeg2000::kSubHalf) r = sub16(va, half);
                if constexpr (Op == jpeg2000::kAddHalf) r = add16(va, half);
                if constexpr (Op == jpeg2000::kAddQuarter) r = add16(va, halfRoundUp16(half));
                if constexpr (Op == jpeg2000::kSubQuarter) r = sub16(va, halfRoundUp16(half));
            } else {
                const IntVec half = floorHalfSum32(vb, vc);
                if constexpr (Op == jpeg2000::kSubHalf) r = sub32(va, half);
                if constexpr (Op == jpeg2000::kAddHalf) r = add32(va, half);
                if constexpr (Op == jpeg2000::kAddQuarter) r = add32(va, halfRoundUp32(half));
                if constexpr (Op == jpeg2000::kSubQuarter) r = sub32(va, halfRoundUp32(half));
            }
            store(o, r);
        },
        out, a, b, c);
}

// ---- 9/7 Q16 ----------------------------------------------------------------------------

// C = hi * 65536 + lo with lo in -32768..32767.
constexpr int32_t lowPart(int32_t c) { return ((c + 32768) & 0xFFFF) - 32768; }
constexpr int32_t highPart(int32_t c) { return (c - lowPart(c)) / 65536; }
constexpr int64_t magnitude(int64_t v) { return v < 0 ? -v : v; }

// Half the lanes (lo or hi by `pick`) of the 16-bit step, in 32 bits.
template <int32_t CA, int32_t CB, class Pick>
inline IntVec stepQ16Half(IntVec a, IntVec b, IntVec c, Pick pick) {
    constexpr int32_t caLo = lowPart(CA), caHi = highPart(CA), cbLo = lowPart(CB), cbHi = highPart(CB);
    static_assert(32768 * (magnitude(caLo) + 2 * magnitude(cbLo)) + 32768 <= INT32_MAX,
                  "the low products of a Q16 step must fit 32 bits");
    const IntVec zero = splat16<IntVec>(0), two = splat16<IntVec>(2);
    IntVec low, high = splat32<IntVec>(0);
    if constexpr (CB != 0) {
        const IntVec ab = pick(a, b);
        low = add32(madd16(ab, pairConstant<IntVec>(caLo, cbLo)),
                    madd16(pick(c, two), pairConstant<IntVec>(cbLo, 16384)));
        if constexpr (caHi != 0 || cbHi != 0)
            high = add32(madd16(ab, pairConstant<IntVec>(caHi, cbHi)),
                         madd16(pick(c, zero), pairConstant<IntVec>(cbHi, 0)));
    } else {
        low = madd16(pick(a, two), pairConstant<IntVec>(caLo, 16384));
        if constexpr (caHi != 0) high = madd16(pick(a, zero), pairConstant<IntVec>(caHi, 0));
    }
    return add32(high, sra32<16>(low));
}

template <class T, int32_t CA, int32_t CB>
void liftQ(T* out, const T* a, const T* b, const T* c, size_t n) {
    constexpr size_t N = sizeof(IntVec) / sizeof(T);
    if constexpr (sizeof(T) == 2) {
        auto lo = [](IntVec x, IntVec y) { return unpackLo16(x, y); };
        auto hi = [](IntVec x, IntVec y) { return unpackHi16(x, y); };
        if constexpr (CB == 0) {
            forEachBlock<N, 2>(
                n,
                [lo, hi](T* o, const T* pa) {
                    const IntVec va = loadI<IntVec>(pa);
                    store(o, packSat32(stepQ16Half<CA, 0>(va, va, va, lo), stepQ16Half<CA, 0>(va, va, va, hi)));
                },
                out, a);
        } else {
            forEachBlock<N, 2>(
                n,
                [lo, hi](T* o, const T* pa, const T* pb, const T* pc) {
                    const IntVec va = loadI<IntVec>(pa), vb = loadI<IntVec>(pb), vc = loadI<IntVec>(pc);
                    store(o, packSat32(stepQ16Half<CA, CB>(va, vb, vc, lo), stepQ16Half<CA, CB>(va, vb, vc, hi)));
                },
                out, a, b, c);
        }
    } else {
        // The sum of 64-bit products; a step that adds to the coefficient
        // adds it after the rounding (its product is a multiple of 65536).
        auto step = [](IntVec va, IntVec vb, IntVec vc) {
            IntVec even = splat64<IntVec>(0), odd = even, e, o;
            if constexpr (CA != jpeg2000::kOneQ) mulWideLanes(va, splat32<IntVec>(CA), even, odd);
            if constexpr (CB != 0) {
                const IntVec k = splat32<IntVec>(CB);
                mulWideLanes(vb, k, e, o);
                even = add64(even, e), odd = add64(odd, o);
                mulWideLanes(vc, k, e, o);
                even = add64(even, e), odd = add64(odd, o);
            }
            const IntVec r = roundWide<16>(even, odd);
            return CA == jpeg2000::kOneQ ? add32(va, r) : r;
        };
        if constexpr (CB == 0) {
            forEachBlock<N, 2>(
                n,
                [step](T* o, const T* pa) {
                    const IntVec va = loadI<IntVec>(pa);
                    store(o, step(va, va, va));
                },
                out, a);
        } else {
            forEachBlock<N, 2>(
                n,
                [step](T* o, const T* pa, const T* pb, const T* pc) {
                    store(o, step(loadI<IntVec>(pa), loadI<IntVec>(pb), loadI<IntVec>(pc)));
                },
                out, a, b, c);
        }
    }
}
#else
// The SSE level has the float members only; the integer kernels the shared
// walks name are never instantiated there.
template <class T, int Op>
void lift53(T* out, const T* a, const T* b, const T* c, size_t n);
template <class T, int32_t CA, int32_t CB>
void liftQ(T* out, const T* a, const T* b, const T* c, size_t n);
#endif

}  // namespace

#endif
