// Lane arithmetic with one name at every vector width, so that a kernel is
// written once and each level instantiates it on its own widest vector.
//
// Included inside a level's namespace after core/simd_vocabulary.h;
// everything has internal linkage.  Each word is an overload on the vector
// type (__m128i, __m256i, __m512i; __m128, __m256, __m512), offered where
// the level has the instruction:
//   add16 sub32 adds16 mullo16 mulEven32s madd16 min32 ...  the instruction of
//       that name at every width (lanes of 8, 16, 32 or 64 bits, s/u signed
//       or unsigned);
//   sll32(v, count) ...   shift by the count in the low 64 bits of an __m128i
//                         at every width; slli32(v, n) by a number;
//   cmpeq32 cmpgt32 cmpgeF ...   a lane mask: a vector of all-ones lanes up
//                         to 256 bits, a mask register at 512, either one
//                         fit for select(); intMask(m) makes a float
//                         comparison's mask one for integer lanes, and
//                         byteMask(v) a vector of 0 or 0xFF bytes one for
//                         selecting bytes;
//   unpacklo16, packs32 ...  the instructions themselves, which work inside
//       each 128-bit lane: an unpack followed by the pack of its two halves
//       gives the elements back in order.  packs32Ordered and the other
//       ...Ordered words put the packed elements in memory order at every
//       width; orderAfterPack4(packus16(packs32(a, b), packs32(c, d))) does
//       so for two rounds of packs of four vectors;
//   loadAs<V>(p), splat<V>(x), splat64<V>(x), zero<V>()   the load, the
//       broadcast (by the type of x; splat64 of a 64-bit integer) and zero of V;
//   loadExtend<V, S, D>(p)   sizeof(V) / sizeof(D) samples of type S from p,
//                            widened (zero- or sign-extended) to D lanes.
// WideI and WideF name the level's widest integer and float vectors.
#ifndef VEK_CORE_SIMD_LANES_H
#define VEK_CORE_SIMD_LANES_H

namespace {

// ---- the level's widest vectors ----------------------------------------------------
#if defined(__AVX512F__) && defined(__AVX512BW__)
using WideI = __m512i;
using WideF = __m512;
#elif defined(__AVX2__)
using WideI = __m256i;
using WideF = __m256;
#elif defined(__SSE2__)
using WideI = __m128i;
using WideF = __m128;
#elif defined(__SSE__)
using WideF = __m128;
#endif

// loadAs<V>: the load of V, picked by overloading on a null V pointer.
#ifdef __SSE__
inline __m128 loadVector(const __m128*, const void* p) { return load128f(p); }
#endif
#ifdef __SSE2__
inline __m128i loadVector(const __m128i*, const void* p) { return load128i(p); }
#endif
#ifdef __AVX2__
inline __m256 loadVector(const __m256*, const void* p) { return load256f(p); }
inline __m256i loadVector(const __m256i*, const void* p) { return load256i(p); }
#endif
#ifdef __AVX512F__
inline __m512 loadVector(const __m512*, const void* p) { return load512f(p); }
inline __m512i loadVector(const __m512i*, const void* p) { return load512i(p); }
#endif
template <class V>
inline V loadAs(const void* p) {
    return loadVector(static_cast<const V*>(nullptr), p);
}
template <class V, class T>
inline V splat(T x) {
    if constexpr (sizeof(V) == 16) return broadcast128(x);
#ifdef __AVX2__
    if constexpr (sizeof(V) == 32) return broadcast256(x);
#endif
#ifdef __AVX512F__
    if constexpr (sizeof(V) == 64) return broadcast512(x);
#endif
}
template <class V>
inline V zero() {
    return V{};
}
#ifdef __SSE2__
template <class V>
inline V splat64(int64_t x) {
    if constexpr (sizeof(V) == 16) return _mm_set1_epi64x(x);
#    ifdef __AVX2__
    if constexpr (sizeof(V) == 32) return _mm256_set1_epi64x(x);
#    endif
#    ifdef __AVX512F__
    if constexpr (sizeof(V) == 64) return _mm512_set1_epi64(x);
#    endif
}
#endif

// ---- words named alike at every width -------------------------------------------
// P is the intrinsics' prefix, B the suffix of the whole-register logic.
// clang-format off
#define VEK_LANE_INTEGER_WORDS(V, P, B)                                                        \
    inline V add16(V a, V b) { return P##add_epi16(a, b); }                                    \
    inline V add32(V a, V b) { return P##add_epi32(a, b); }                                    \
    inline V add64(V a, V b) { return P##add_epi64(a, b); }                                    \
    inline V sub16(V a, V b) { return P##sub_epi16(a, b); }                                    \
    inline V sub32(V a, V b) { return P##sub_epi32(a, b); }                                    \
    inline V adds16(V a, V b) { return P##adds_epi16(a, b); }                                  \
    inline V subs16(V a, V b) { return P##subs_epi16(a, b); }                                  \
    inline V subsU16(V a, V b) { return P##subs_epu16(a, b); }                                 \
    inline V mullo16(V a, V b) { return P##mullo_epi16(a, b); }                                \
    inline V mulhi16(V a, V b) { return P##mulhi_epi16(a, b); }                                \
    inline V mulEven32u(V a, V b) { return P##mul_epu32(a, b); }                               \
    inline V madd16(V a, V b) { return P##madd_epi16(a, b); }                                  \
    inline V andBits(V a, V b) { return P##and_##B(a, b); }                                    \
    inline V orBits(V a, V b) { return P##or_##B(a, b); }                                      \
    inline V xorBits(V a, V b) { return P##xor_##B(a, b); }                                    \
    inline V andNotBits(V a, V b) { return P##andnot_##B(a, b); } /* ~a & b */                 \
    inline V slli16(V a, int n) { return P##slli_epi16(a, n); }                                \
    inline V slli64(V a, int n) { return P##slli_epi64(a, n); }                                \
    inline V srai16(V a, int n) { return P##srai_epi16(a, n); }                                \
    inline V srai32(V a, int n) { return P##srai_epi32(a, n); }                                \
    inline V srli16(V a, int n) { return P##srli_epi16(a, n); }                                \
    inline V srli32(V a, int n) { return P##srli_epi32(a, n); }                                \
    inline V srli64(V a, int n) { return P##srli_epi64(a, n); }                                \
    inline V sll16(V a, __m128i c) { return P##sll_epi16(a, c); }                              \
    inline V sll32(V a, __m128i c) { return P##sll_epi32(a, c); }                              \
    inline V sra16(V a, __m128i c) { return P##sra_epi16(a, c); }                              \
    inline V sra32(V a, __m128i c) { return P##sra_epi32(a, c); }                              \
    inline V srl32(V a, __m128i c) { return P##srl_epi32(a, c); }                              \
    inline V srl64(V a, __m128i c) { return P##srl_epi64(a, c); }                              \
    inline V unpacklo16(V a, V b) { return P##unpacklo_epi16(a, b); }                          \
    inline V unpackhi16(V a, V b) { return P##unpackhi_epi16(a, b); }                          \
    inline V packs32(V a, V b) { return P##packs_epi32(a, b); }                                \
    inline V packus16(V a, V b) { return P##packus_epi16(a, b); }
#define VEK_LANE_INTEGER_SSE41_WORDS(V, P)                                                     \
    inline V mulEven32s(V a, V b) { return P##mul_epi32(a, b); }                               \
    inline V min32(V a, V b) { return P##min_epi32(a, b); }                                    \
    inline V max32(V a, V b) { return P##max_epi32(a, b); }                                    \
    inline V minU16(V a, V b) { return P##min_epu16(a, b); }                                   \
    inline V packus32(V a, V b) { return P##packus_epi32(a, b); }
#define VEK_LANE_FLOAT_WORDS(F, V, P)                                                          \
    inline F addF(F a, F b) { return P##add_ps(a, b); }                                        \
    inline F subF(F a, F b) { return P##sub_ps(a, b); }                                        \
    inline F mulF(F a, F b) { return P##mul_ps(a, b); }                                        \
    inline F minF(F a, F b) { return P##min_ps(a, b); }                                        \
    inline F maxF(F a, F b) { return P##max_ps(a, b); }                                        \
    inline F toFloat(V a) { return P##cvtepi32_ps(a); }                                        \
    inline V truncateToInt(F a) { return P##cvttps_epi32(a); }                                \
    inline V convertToInt(F a) { return P##cvtps_epi32(a); } /* in the rounding mode of MXCSR */
// clang-format on

#ifdef __SSE__
inline __m128 addF(__m128 a, __m128 b) { return _mm_add_ps(a, b); }
inline __m128 subF(__m128 a, __m128 b) { return _mm_sub_ps(a, b); }
inline __m128 mulF(__m128 a, __m128 b) { return _mm_mul_ps(a, b); }
#endif
#ifdef __SSE2__
VEK_LANE_INTEGER_WORDS(__m128i, _mm_, si128)
inline __m128 minF(__m128 a, __m128 b) { return _mm_min_ps(a, b); }
inline __m128 maxF(__m128 a, __m128 b) { return _mm_max_ps(a, b); }
inline __m128 toFloat(__m128i a) { return _mm_cvtepi32_ps(a); }
inline __m128i truncateToInt(__m128 a) { return _mm_cvttps_epi32(a); }
inline __m128i convertToInt(__m128 a) { return _mm_cvtps_epi32(a); }
inline __m128i cmpeq16(__m128i a, __m128i b) { return _mm_cmpeq_epi16(a, b); }
inline __m128i cmpeq32(__m128i a, __m128i b) { return _mm_cmpeq_epi32(a, b); }
inline __m128i cmpgt32(__m128i a, __m128i b) { return _mm_cmpgt_epi32(a, b); }
inline __m128 cmpgeF(__m128 a, __m128 b) { return _mm_cmpge_ps(a, b); }
inline __m128 cmpltF(__m128 a, __m128 b) { return _mm_cmplt_ps(a, b); }
inline __m128 cmpordF(__m128 a, __m128 b) { return _mm_cmpord_ps(a, b); }
inline __m128i intMask(__m128 m) { return _mm_castps_si128(m); }
inline __m128i packs32Ordered(__m128i a, __m128i b) { return _mm_packs_epi32(a, b); }
inline __m128i packus16Ordered(__m128i a, __m128i b) { return _mm_packus_epi16(a, b); }
inline __m128i orderAfterPack4(__m128i packed) { return packed; }
inline __m128i byteMask(__m128i m) { return m; }
// Whether every bit of a & b is zero.
inline bool testAllZero(__m128i a, __m128i b) {
#    ifdef __SSE4_1__
    return _mm_testz_si128(a, b);
#    else
    return _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_and_si128(a, b), _mm_setzero_si128())) == 0xFFFF;
#    endif
}
#endif
#ifdef __SSE4_1__
VEK_LANE_INTEGER_SSE41_WORDS(__m128i, _mm_)
inline __m128i packus32Ordered(__m128i a, __m128i b) { return _mm_packus_epi32(a, b); }
// The odd 32-bit lanes of b, the even ones of a.
inline __m128i blendOdd32(__m128i a, __m128i b) { return _mm_blend_epi16(a, b, 0xCC); }
inline __m128 roundNearestF(__m128 a) { return _mm_round_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
#endif

#ifdef __AVX2__
VEK_LANE_INTEGER_WORDS(__m256i, _mm256_, si256)
VEK_LANE_INTEGER_SSE41_WORDS(__m256i, _mm256_)
VEK_LANE_FLOAT_WORDS(__m256, __m256i, _mm256_)
inline __m256i cmpeq16(__m256i a, __m256i b) { return _mm256_cmpeq_epi16(a, b); }
inline __m256i cmpeq32(__m256i a, __m256i b) { return _mm256_cmpeq_epi32(a, b); }
inline __m256i cmpgt32(__m256i a, __m256i b) { return _mm256_cmpgt_epi32(a, b); }
inline __m256 cmpgeF(__m256 a, __m256 b) { return _mm256_cmp_ps(a, b, _CMP_GE_OS); }
inline __m256 cmpltF(__m256 a, __m256 b) { return _mm256_cmp_ps(a, b, _CMP_LT_OS); }
inline __m256 cmpordF(__m256 a, __m256 b) { return _mm256_cmp_ps(a, b, _CMP_ORD_Q); }
inline __m256i intMask(__m256 m) { return _mm256_castps_si256(m); }
// The 64-bit halves of the 128-bit lanes put in memory order after a pack
// of a and b: a's elements, then b's.
inline __m256i packs32Ordered(__m256i a, __m256i b) { return _mm256_permute4x64_epi64(_mm256_packs_epi32(a, b), 0xD8); }
inline __m256i packus16Ordered(__m256i a, __m256i b) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(a, b), 0xD8);
}
inline __m256i packus32Ordered(__m256i a, __m256i b) {
    return _mm256_permute4x64_epi64(_mm256_packus_epi32(a, b), 0xD8);
}
inline __m256i orderAfterPack4(__m256i packed) {
    return _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}
inline __m256i byteMask(__m256i m) { return m; }
inline bool testAllZero(__m256i a, __m256i b) { return _mm256_testz_si256(a, b); }
inline __m256i blendOdd32(__m256i a, __m256i b) { return _mm256_blend_epi32(a, b, 0xAA); }
inline __m256 roundNearestF(__m256 a) { return _mm256_round_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
#endif

#if defined(__AVX512F__) && defined(__AVX512BW__)
VEK_LANE_INTEGER_WORDS(__m512i, _mm512_, si512)
VEK_LANE_INTEGER_SSE41_WORDS(__m512i, _mm512_)
VEK_LANE_FLOAT_WORDS(__m512, __m512i, _mm512_)
inline __mmask32 cmpeq16(__m512i a, __m512i b) { return _mm512_cmpeq_epi16_mask(a, b); }
inline __mmask16 cmpeq32(__m512i a, __m512i b) { return _mm512_cmpeq_epi32_mask(a, b); }
inline __mmask16 cmpgt32(__m512i a, __m512i b) { return _mm512_cmpgt_epi32_mask(a, b); }
inline __mmask16 cmpgeF(__m512 a, __m512 b) { return _mm512_cmp_ps_mask(a, b, _CMP_GE_OS); }
inline __mmask16 cmpltF(__m512 a, __m512 b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OS); }
inline __mmask16 cmpordF(__m512 a, __m512 b) { return _mm512_cmp_ps_mask(a, b, _CMP_ORD_Q); }
inline __mmask16 intMask(__mmask16 m) { return m; }
// After a pack, 64-bit element 2k + h of the result holds part k of source
// h; memory order takes all parts of a, then all of b.
inline __m512i packOrder512(__m512i packed) {
    return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), packed);
}
inline __m512i packs32Ordered(__m512i a, __m512i b) { return packOrder512(_mm512_packs_epi32(a, b)); }
inline __m512i packus16Ordered(__m512i a, __m512i b) { return packOrder512(_mm512_packus_epi16(a, b)); }
inline __m512i packus32Ordered(__m512i a, __m512i b) { return packOrder512(_mm512_packus_epi32(a, b)); }
inline __m512i orderAfterPack4(__m512i packed) {
    return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), packed);
}
inline __mmask64 byteMask(__m512i m) { return _mm512_movepi8_mask(m); }
inline bool testAllZero(__m512i a, __m512i b) { return _mm512_test_epi32_mask(a, b) == 0; }
inline __m512i blendOdd32(__m512i a, __m512i b) { return _mm512_mask_blend_epi32(0xAAAA, a, b); }
inline __m512 roundNearestF(__m512 a) { return _mm512_roundscale_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
#endif

#undef VEK_LANE_INTEGER_WORDS
#undef VEK_LANE_INTEGER_SSE41_WORDS
#undef VEK_LANE_FLOAT_WORDS

// ---- widening loads -------------------------------------------------------------
#ifdef __SSE2__
// The low 4 or 8 bytes at p in an __m128i, the rest zero.
inline __m128i loadLow32(const void* p) {
    int x;
    memcpy(&x, p, sizeof x);
    return _mm_cvtsi32_si128(x);
}
inline __m128i loadLow64(const void* p) { return _mm_loadl_epi64(static_cast<const __m128i*>(p)); }

template <class V, class S, class D>
inline V loadExtend(const S* p) {
    static_assert(sizeof(D) > sizeof(S) && std::is_integral_v<S>, "a widening of integers");
    constexpr bool kSigned = std::is_signed_v<S>;
    if constexpr (sizeof(V) == 16) {
        const __m128i x = sizeof(D) / sizeof(S) == 4 ? loadLow32(p) : loadLow64(p);
#    ifdef __SSE4_1__
        if constexpr (sizeof(S) == 1 && sizeof(D) == 2) return kSigned ? _mm_cvtepi8_epi16(x) : _mm_cvtepu8_epi16(x);
        if constexpr (sizeof(S) == 1 && sizeof(D) == 4) return kSigned ? _mm_cvtepi8_epi32(x) : _mm_cvtepu8_epi32(x);
        if constexpr (sizeof(S) == 2) return kSigned ? _mm_cvtepi16_epi32(x) : _mm_cvtepu16_epi32(x);
#    else
        static_assert(!kSigned || sizeof(S) == 2, "sign extension of bytes needs SSE4.1");
        const __m128i z = _mm_setzero_si128();
        if constexpr (sizeof(S) == 1 && sizeof(D) == 2) return _mm_unpacklo_epi8(x, z);
        if constexpr (sizeof(S) == 1 && sizeof(D) == 4) return _mm_unpacklo_epi16(_mm_unpacklo_epi8(x, z), z);
        if constexpr (sizeof(S) == 2)
            return kSigned ? _mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16) : _mm_unpacklo_epi16(x, z);
#    endif
    }
#    ifdef __AVX2__
    if constexpr (sizeof(V) == 32) {
        const __m128i x = sizeof(D) / sizeof(S) == 4 ? loadLow64(p) : load128i(p);
        if constexpr (sizeof(S) == 1 && sizeof(D) == 2)
            return kSigned ? _mm256_cvtepi8_epi16(x) : _mm256_cvtepu8_epi16(x);
        if constexpr (sizeof(S) == 1 && sizeof(D) == 4)
            return kSigned ? _mm256_cvtepi8_epi32(x) : _mm256_cvtepu8_epi32(x);
        if constexpr (sizeof(S) == 2) return kSigned ? _mm256_cvtepi16_epi32(x) : _mm256_cvtepu16_epi32(x);
    }
#    endif
#    if defined(__AVX512F__) && defined(__AVX512BW__)
    if constexpr (sizeof(V) == 64) {
        if constexpr (sizeof(S) == 1 && sizeof(D) == 4) {
            const __m128i x = load128i(p);
            return kSigned ? _mm512_cvtepi8_epi32(x) : _mm512_cvtepu8_epi32(x);
        } else {
            const __m256i x = load256i(p);
            if constexpr (sizeof(S) == 1) return kSigned ? _mm512_cvtepi8_epi16(x) : _mm512_cvtepu8_epi16(x);
            if constexpr (sizeof(S) == 2) return kSigned ? _mm512_cvtepi16_epi32(x) : _mm512_cvtepu16_epi32(x);
        }
    }
#    endif
}
#endif

}  // namespace

#endif
