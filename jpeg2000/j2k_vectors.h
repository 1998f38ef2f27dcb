// The lane operations the JPEG 2000 kernels are written in, for every
// vector width the level may use.
//
// The kernels are templates over the vector type (__m128i, __m256i, __m512i
// and their float and double kin), so one kernel serves every width: loads
// and broadcasts take the vector type as a template argument, everything
// else is overloaded on it.  Where an instruction works within 128-bit
// lanes (unpack, pack), a kernel pairs it with its inverse (unpack, work,
// pack), so the lane order comes back and the kernel is width-agnostic.
//
// Included inside a level's namespace after core/simd_vocabulary.h;
// internal linkage.  What is offered follows the compiler's macros, as the
// vocabulary does.
#ifndef VEK_JPEG2000_J2K_VECTORS_H
#define VEK_JPEG2000_J2K_VECTORS_H

namespace {

#ifdef __SSE__
template <class V>
inline V loadF(const float* p);
template <>
inline __m128 loadF<__m128>(const float* p) {
    return load128f(p);
}
template <class V>
inline V splatF(float x);
template <>
inline __m128 splatF<__m128>(float x) {
    return broadcast128(x);
}
inline __m128 add(__m128 a, __m128 b) { return _mm_add_ps(a, b); }
inline __m128 mul(__m128 a, __m128 b) { return _mm_mul_ps(a, b); }
#endif

#ifdef __SSE2__
template <class V>
inline V loadI(const void* p);
template <>
inline __m128i loadI<__m128i>(const void* p) {
    return load128i(p);
}
template <class V>
inline V splat16(int16_t x);
template <>
inline __m128i splat16<__m128i>(int16_t x) {
    return broadcast128(Vek16s(x));
}
template <class V>
inline V splat32(int32_t x);
template <>
inline __m128i splat32<__m128i>(int32_t x) {
    return broadcast128(Vek32s(x));
}
template <class V>
inline V splat64(int64_t x);
template <>
inline __m128i splat64<__m128i>(int64_t x) {
    return _mm_set1_epi64x(x);
}
template <class V>
inline V splatD(double x);
template <>
inline __m128d splatD<__m128d>(double x) {
    return _mm_set1_pd(x);
}

inline __m128i add16(__m128i a, __m128i b) { return _mm_add_epi16(a, b); }
inline __m128i sub16(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
inline __m128i add32(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
inline __m128i sub32(__m128i a, __m128i b) { return _mm_sub_epi32(a, b); }
inline __m128i add64(__m128i a, __m128i b) { return _mm_add_epi64(a, b); }
inline __m128i sub64(__m128i a, __m128i b) { return _mm_sub_epi64(a, b); }
inline __m128i andBits(__m128i a, __m128i b) { return _mm_and_si128(a, b); }
inline __m128i xorBits(__m128i a, __m128i b) { return _mm_xor_si128(a, b); }
inline __m128i orBits(__m128i a, __m128i b) { return _mm_or_si128(a, b); }
template <int n>
inline __m128i sra16(__m128i a) {
    return _mm_srai_epi16(a, n);
}
template <int n>
inline __m128i sra32(__m128i a) {
    return _mm_srai_epi32(a, n);
}
template <int n>
inline __m128i sll32(__m128i a) {
    return _mm_slli_epi32(a, n);
}
template <int n>
inline __m128i srl64(__m128i a) {
    return _mm_srli_epi64(a, n);
}
template <int n>
inline __m128i sll64(__m128i a) {
    return _mm_slli_epi64(a, n);
}
inline __m128i madd16(__m128i a, __m128i b) { return _mm_madd_epi16(a, b); }
inline __m128i unpackLo16(__m128i a, __m128i b) { return _mm_unpacklo_epi16(a, b); }
inline __m128i unpackHi16(__m128i a, __m128i b) { return _mm_unpackhi_epi16(a, b); }
inline __m128i packSat32(__m128i a, __m128i b) { return _mm_packs_epi32(a, b); }
// The low dwords of the 64-bit lanes of a and the high dwords of b.
inline __m128i evenOdd32(__m128i a, __m128i b) {
#    ifdef __SSE4_1__
    return _mm_blend_epi16(a, b, 0xCC);
#    else
    const __m128i low = _mm_set1_epi64x(0xFFFFFFFF);
    return _mm_or_si128(_mm_and_si128(a, low), _mm_andnot_si128(low, b));
#    endif
}
// Signed products of the low dwords of each 64-bit lane, in 64 bits.  SSE2
// multiplies unsigned and corrects the high half: for 32-bit x and c,
// x * c = xu * cu - 2^32 * (x<0 ? c : 0) - 2^32 * (c<0 ? x : 0) modulo 2^64.
inline __m128i mulWide(__m128i x, __m128i c) {
#    ifdef __SSE4_1__
    return _mm_mul_epi32(x, c);
#    else
    const __m128i fix = _mm_add_epi32(_mm_and_si128(_mm_srai_epi32(x, 31), c), _mm_and_si128(_mm_srai_epi32(c, 31), x));
    return _mm_sub_epi64(_mm_mul_epu32(x, c), _mm_slli_epi64(fix, 32));
#    endif
}
inline __m128d add(__m128d a, __m128d b) { return _mm_add_pd(a, b); }
inline __m128d mul(__m128d a, __m128d b) { return _mm_mul_pd(a, b); }
// Floats to doubles and back, in two halves.
inline void widen(__m128 f, __m128d& lo, __m128d& hi) {
    lo = _mm_cvtps_pd(f);
    hi = _mm_cvtps_pd(_mm_movehl_ps(f, f));
}
inline __m128 narrow(__m128d lo, __m128d hi) { return _mm_movelh_ps(_mm_cvtpd_ps(lo), _mm_cvtpd_ps(hi)); }
#endif

#ifdef __AVX2__
template <>
inline __m256 loadF<__m256>(const float* p) {
    return load256f(p);
}
template <>
inline __m256 splatF<__m256>(float x) {
    return broadcast256(x);
}
template <>
inline __m256i loadI<__m256i>(const void* p) {
    return load256i(p);
}
template <>
inline __m256i splat16<__m256i>(int16_t x) {
    return broadcast256(Vek16s(x));
}
template <>
inline __m256i splat32<__m256i>(int32_t x) {
    return broadcast256(Vek32s(x));
}
template <>
inline __m256i splat64<__m256i>(int64_t x) {
    return _mm256_set1_epi64x(x);
}
template <>
inline __m256d splatD<__m256d>(double x) {
    return _mm256_set1_pd(x);
}
inline __m256 add(__m256 a, __m256 b) { return _mm256_add_ps(a, b); }
inline __m256 mul(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
inline __m256d add(__m256d a, __m256d b) { return _mm256_add_pd(a, b); }
inline __m256d mul(__m256d a, __m256d b) { return _mm256_mul_pd(a, b); }
inline __m256i add16(__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }
inline __m256i sub16(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }
inline __m256i add32(__m256i a, __m256i b) { return _mm256_add_epi32(a, b); }
inline __m256i sub32(__m256i a, __m256i b) { return _mm256_sub_epi32(a, b); }
inline __m256i add64(__m256i a, __m256i b) { return _mm256_add_epi64(a, b); }
inline __m256i sub64(__m256i a, __m256i b) { return _mm256_sub_epi64(a, b); }
inline __m256i andBits(__m256i a, __m256i b) { return _mm256_and_si256(a, b); }
inline __m256i xorBits(__m256i a, __m256i b) { return _mm256_xor_si256(a, b); }
inline __m256i orBits(__m256i a, __m256i b) { return _mm256_or_si256(a, b); }
template <int n>
inline __m256i sra16(__m256i a) {
    return _mm256_srai_epi16(a, n);
}
template <int n>
inline __m256i sra32(__m256i a) {
    return _mm256_srai_epi32(a, n);
}
template <int n>
inline __m256i sll32(__m256i a) {
    return _mm256_slli_epi32(a, n);
}
template <int n>
inline __m256i srl64(__m256i a) {
    return _mm256_srli_epi64(a, n);
}
template <int n>
inline __m256i sll64(__m256i a) {
    return _mm256_slli_epi64(a, n);
}
inline __m256i madd16(__m256i a, __m256i b) { return _mm256_madd_epi16(a, b); }
inline __m256i unpackLo16(__m256i a, __m256i b) { return _mm256_unpacklo_epi16(a, b); }
inline __m256i unpackHi16(__m256i a, __m256i b) { return _mm256_unpackhi_epi16(a, b); }
inline __m256i packSat32(__m256i a, __m256i b) { return _mm256_packs_epi32(a, b); }
inline __m256i evenOdd32(__m256i a, __m256i b) { return _mm256_blend_epi32(a, b, 0xAA); }
inline __m256i mulWide(__m256i x, __m256i c) { return _mm256_mul_epi32(x, c); }
inline void widen(__m256 f, __m256d& lo, __m256d& hi) {
    lo = _mm256_cvtps_pd(_mm256_castps256_ps128(f));
    hi = _mm256_cvtps_pd(_mm256_extractf128_ps(f, 1));
}
inline __m256 narrow(__m256d lo, __m256d hi) {
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm256_cvtpd_ps(lo)), _mm256_cvtpd_ps(hi), 1);
}
#endif

#ifdef __AVX512F__
// GCC before 13 warns that the undefined pass-through operand inside many
// AVX-512 intrinsics is (or "may be") used uninitialized; it is never read.
#    if defined(__GNUC__) && !defined(__clang__) && __GNUC__ < 13
#        pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#        pragma GCC diagnostic ignored "-Wuninitialized"
#    endif
template <>
inline __m512 loadF<__m512>(const float* p) {
    return load512f(p);
}
template <>
inline __m512 splatF<__m512>(float x) {
    return broadcast512(x);
}
template <>
inline __m512i loadI<__m512i>(const void* p) {
    return load512i(p);
}
template <>
inline __m512i splat16<__m512i>(int16_t x) {
    return broadcast512(Vek16s(x));
}
template <>
inline __m512i splat32<__m512i>(int32_t x) {
    return broadcast512(Vek32s(x));
}
template <>
inline __m512i splat64<__m512i>(int64_t x) {
    return _mm512_set1_epi64(x);
}
template <>
inline __m512d splatD<__m512d>(double x) {
    return _mm512_set1_pd(x);
}
inline __m512 add(__m512 a, __m512 b) { return _mm512_add_ps(a, b); }
inline __m512 mul(__m512 a, __m512 b) { return _mm512_mul_ps(a, b); }
inline __m512d add(__m512d a, __m512d b) { return _mm512_add_pd(a, b); }
inline __m512d mul(__m512d a, __m512d b) { return _mm512_mul_pd(a, b); }
inline __m512i add16(__m512i a, __m512i b) { return _mm512_add_epi16(a, b); }
inline __m512i sub16(__m512i a, __m512i b) { return _mm512_sub_epi16(a, b); }
inline __m512i add32(__m512i a, __m512i b) { return _mm512_add_epi32(a, b); }
inline __m512i sub32(__m512i a, __m512i b) { return _mm512_sub_epi32(a, b); }
inline __m512i add64(__m512i a, __m512i b) { return _mm512_add_epi64(a, b); }
inline __m512i sub64(__m512i a, __m512i b) { return _mm512_sub_epi64(a, b); }
inline __m512i andBits(__m512i a, __m512i b) { return _mm512_and_si512(a, b); }
inline __m512i xorBits(__m512i a, __m512i b) { return _mm512_xor_si512(a, b); }
inline __m512i orBits(__m512i a, __m512i b) { return _mm512_or_si512(a, b); }
template <int n>
inline __m512i sra16(__m512i a) {
    return _mm512_srai_epi16(a, n);
}
template <int n>
inline __m512i sra32(__m512i a) {
    return _mm512_srai_epi32(a, n);
}
template <int n>
inline __m512i sll32(__m512i a) {
    return _mm512_slli_epi32(a, n);
}
template <int n>
inline __m512i srl64(__m512i a) {
    return _mm512_srli_epi64(a, n);
}
template <int n>
inline __m512i sll64(__m512i a) {
    return _mm512_slli_epi64(a, n);
}
inline __m512i madd16(__m512i a, __m512i b) { return _mm512_madd_epi16(a, b); }
inline __m512i unpackLo16(__m512i a, __m512i b) { return _mm512_unpacklo_epi16(a, b); }
inline __m512i unpackHi16(__m512i a, __m512i b) { return _mm512_unpackhi_epi16(a, b); }
inline __m512i packSat32(__m512i a, __m512i b) { return _mm512_packs_epi32(a, b); }
inline __m512i evenOdd32(__m512i a, __m512i b) { return _mm512_mask_blend_epi32(__mmask16(0xAAAA), a, b); }
inline __m512i mulWide(__m512i x, __m512i c) { return _mm512_mul_epi32(x, c); }
inline void widen(__m512 f, __m512d& lo, __m512d& hi) {
    lo = _mm512_cvtps_pd(_mm512_castps512_ps256(f));
    hi = _mm512_cvtps_pd(_mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(f), 1)));
}
inline __m512 narrow(__m512d lo, __m512d hi) {
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castps_pd(_mm512_castps256_ps512(_mm512_cvtpd_ps(lo))),
                                               _mm256_castps_pd(_mm512_cvtpd_ps(hi)), 1));
}
#endif

#ifdef __SSE2__
// ---- words built on the lane operations -----------------------------------------

// floor((a + b) / 2) of signed lanes, without overflow.
template <class V>
inline V floorHalfSum16(V a, V b) {
    return add16(andBits(a, b), sra16<1>(xorBits(a, b)));
}
template <class V>
inline V floorHalfSum32(V a, V b) {
    return add32(andBits(a, b), sra32<1>(xorBits(a, b)));
}
// floor((s + 1) / 2), without overflow: floor((a + b + 2) / 4) when s is
// floor((a + b) / 2).
template <class V>
inline V halfRoundUp16(V s) {
    return add16(sra16<1>(s), andBits(s, splat16<V>(1)));
}
template <class V>
inline V halfRoundUp32(V s) {
    return add32(sra32<1>(s), andBits(s, splat32<V>(1)));
}

// A pair of 16-bit constants for madd16: c0 multiplies the first sample of
// each pair, c1 the second.
template <class V>
inline V pairConstant(int c0, int c1) {
    return splat32<V>(int32_t((uint32_t(uint16_t(c1)) << 16) | uint16_t(c0)));
}

// Every lane's low 16 bits, sign-extended, so that a pack keeps them
// (a wrapping narrowing).
template <class V>
inline V low16(V a) {
    return sra32<16>(sll32<16>(a));
}

// Bits Shift..Shift+31 of the 64-bit sums held as even (the low dwords'
// lanes) and odd (the high dwords') halves, with 2^(Shift-1) added first:
// the rounded, arithmetically shifted sum reduced to 32 bits.
template <int Shift, class V>
inline V roundWide(V even, V odd) {
    const V half = splat64<V>(int64_t(1) << (Shift - 1));
    return evenOdd32(srl64<Shift>(add64(even, half)), sll64<32 - Shift>(add64(odd, half)));
}
// c * x for each 32-bit lane of x, as the even and odd 64-bit halves.
template <class V>
inline void mulWideLanes(V x, V c, V& even, V& odd) {
    even = mulWide(x, c);
    odd = mulWide(srl64<32>(x), c);
}
#endif

}  // namespace

#endif
