// Kernels of the shift, conversion and threshold family for the SSE2 and
// SSE4.1 levels, one template per algorithm.
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; everything here has internal
// linkage (unnamed namespace), so each level gets its own copy built with
// its own instruction set.  __SSE4_1__ picks the signed 32-bit min/max and
// the rounding instruction where the level has them.
//
// Each kernel works blocks of one to four vectors through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack.
#ifndef VEK_SIGNAL_VECTOR_SIMD_H
#define VEK_SIGNAL_VECTOR_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// ---- shifts: two vectors per block ------------------------------------------

inline __m128i shiftLeft(const Vek16s*, __m128i v, __m128i count) { return _mm_sll_epi16(v, count); }
inline __m128i shiftLeft(const Vek32s*, __m128i v, __m128i count) { return _mm_sll_epi32(v, count); }
inline __m128i shiftRight(const Vek16s*, __m128i v, __m128i count) { return _mm_sra_epi16(v, count); }
inline __m128i shiftRight(const Vek32s*, __m128i v, __m128i count) { return _mm_sra_epi32(v, count); }

template <class T>
void shiftLeftKernel(const T* src, T* dst, int len, int shift) {
    constexpr int W = 16 / sizeof(T);
    const __m128i count = _mm_cvtsi32_si128(shift);
    forEachBlock<2 * W>(
        len,
        [count](T* out, const T* in) {
            const __m128i a = load128i(in), b = load128i(in + W);
            store(out, shiftLeft(in, a, count));
            store(out + W, shiftLeft(in, b, count));
        },
        dst, src);
}

template <class T>
void shiftRightKernel(const T* src, T* dst, int len, int shift) {
    constexpr int W = 16 / sizeof(T);
    const __m128i count = _mm_cvtsi32_si128(shift);
    forEachBlock<2 * W>(
        len,
        [count](T* out, const T* in) {
            const __m128i a = load128i(in), b = load128i(in + W);
            store(out, shiftRight(in, a, count));
            store(out + W, shiftRight(in, b, count));
        },
        dst, src);
}

// ---- integer widening and narrowing -------------------------------------------

inline void widenKernel(const Vek16s* src, Vek32s* dst, int len) {
    forEachBlock<8>(
        len,
        [](Vek32s* out, const Vek16s* in) {
            const __m128i v = load128i(in);
            store(out, _mm_srai_epi32(_mm_unpacklo_epi16(v, v), 16));
            store(out + 4, _mm_srai_epi32(_mm_unpackhi_epi16(v, v), 16));
        },
        dst, src);
}

inline void narrowKernel(const Vek32s* src, Vek16s* dst, int len) {
    forEachBlock<16>(
        len,
        [](Vek16s* out, const Vek32s* in) {
            store(out, _mm_packs_epi32(load128i(in), load128i(in + 4)));
            store(out + 8, _mm_packs_epi32(load128i(in + 8), load128i(in + 12)));
        },
        dst, src);
}

// ---- thresholds ------------------------------------------------------------------

struct Above {  // v > level becomes level
    static __m128i clamp(__m128i v, __m128i level) {
#ifdef __SSE4_1__
        return _mm_min_epi32(v, level);
#else
        return select(_mm_cmpgt_epi32(v, level), level, v);
#endif
    }
};
struct Below {  // v < level becomes level
    static __m128i clamp(__m128i v, __m128i level) {
#ifdef __SSE4_1__
        return _mm_max_epi32(v, level);
#else
        return select(_mm_cmpgt_epi32(level, v), level, v);
#endif
    }
};

template <class Side>
void thresholdKernel(Vek32s* srcDst, int len, Vek32s level) {
    const __m128i l = _mm_set1_epi32(level);
    forEachBlock<8>(
        len,
        [l](Vek32s* out, const Vek32s* in) {
            const __m128i a = load128i(in), b = load128i(in + 4);
            store(out, Side::clamp(a, l));
            store(out + 4, Side::clamp(b, l));
        },
        srcDst, srcDst);
}

// ---- scaled conversions between int32 and float --------------------------------
// The scale factor is clamped to +-200 as in the plain code (no result
// changes beyond it).

constexpr int kScaleLimit = 200;
inline int clampScale(int sf) { return sf < -kScaleLimit ? -kScaleLimit : (sf > kScaleLimit ? kScaleLimit : sf); }

// 2^-k as a float, for k in -127..126 (normal floats only).
inline float floatPowerOfTwo(int k) {
    const uint32_t bits = static_cast<uint32_t>(127 - k) << 23;
    float f;
    memcpy(&f, &bits, sizeof f);
    return f;
}
// 2^-k as a double, for k in -1022..1023.
inline double doublePowerOfTwo(int k) {
    const uint64_t bits = static_cast<uint64_t>(1023 - k) << 52;
    double d;
    memcpy(&d, &bits, sizeof d);
    return d;
}

// For scale factors whose results are never subnormal (x != 0 means
// |x| >= 1, so |x| 2^-sf >= 2^-126) the float conversion of x, rounded
// once, times the power of two gives the once-rounded product (an overflow
// to infinity included).  Beyond that range the exact product is formed in
// double and rounded once to float.
inline void toFloatKernel(const Vek32s* src, Vek32f* dst, int len, int scaleFactor) {
    const int sf = clampScale(scaleFactor);
    if (sf >= -126 && sf <= 126) {
        const __m128 scale = _mm_set1_ps(floatPowerOfTwo(sf));
        forEachBlock<8>(
            len,
            [scale](Vek32f* out, const Vek32s* in) {
                store(out, _mm_mul_ps(_mm_cvtepi32_ps(load128i(in)), scale));
                store(out + 4, _mm_mul_ps(_mm_cvtepi32_ps(load128i(in + 4)), scale));
            },
            dst, src);
    } else {
        const __m128d scale = _mm_set1_pd(doublePowerOfTwo(sf));
        forEachBlock<4>(
            len,
            [scale](Vek32f* out, const Vek32s* in) {
                const __m128i v = load128i(in);
                const __m128 lo = _mm_cvtpd_ps(_mm_mul_pd(_mm_cvtepi32_pd(v), scale));
                const __m128 hi = _mm_cvtpd_ps(_mm_mul_pd(_mm_cvtepi32_pd(_mm_srli_si128(v, 8)), scale));
                store(out, _mm_movelh_ps(lo, hi));
            },
            dst, src);
    }
}

// y rounded to the nearest integer, ties to even, independent of the
// rounding mode; lanes outside the int32 range are fixed up afterwards.
inline __m128i roundNearestEven(__m128 y) {
#ifdef __SSE4_1__
    return _mm_cvttps_epi32(_mm_round_ps(y, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
#else
    // Truncate, then step away from zero when the (exact) fraction left is
    // above one half, or exactly one half and the truncation is odd.
    const __m128i t = _mm_cvttps_epi32(y);
    const __m128 fraction = _mm_sub_ps(y, _mm_cvtepi32_ps(t));
    const __m128 half = _mm_set1_ps(0.5f), minusHalf = _mm_set1_ps(-0.5f);
    const __m128 odd = _mm_castsi128_ps(_mm_cmpeq_epi32(_mm_and_si128(t, _mm_set1_epi32(1)), _mm_set1_epi32(1)));
    const __m128 up = _mm_or_ps(_mm_cmpgt_ps(fraction, half), _mm_and_ps(_mm_cmpeq_ps(fraction, half), odd));
    const __m128 down =
        _mm_or_ps(_mm_cmplt_ps(fraction, minusHalf), _mm_and_ps(_mm_cmpeq_ps(fraction, minusHalf), odd));
    return _mm_add_epi32(_mm_sub_epi32(t, _mm_castps_si128(up)), _mm_castps_si128(down));
#endif
}

// Saturation and NaN: y >= 2^31 gives INT32_MAX, y < -2^31 INT32_MIN, NaN 0.
inline __m128i saturateToInt32(__m128 y, __m128i rounded) {
    const __m128 limit = _mm_set1_ps(2147483648.0f);
    const __m128i high = _mm_castps_si128(_mm_cmpge_ps(y, limit));
    const __m128i low = _mm_castps_si128(_mm_cmplt_ps(y, _mm_sub_ps(_mm_setzero_ps(), limit)));
    const __m128i ordered = _mm_castps_si128(_mm_cmpord_ps(y, y));
    const __m128i r = select(high, _mm_set1_epi32(INT32_MAX), select(low, _mm_set1_epi32(INT32_MIN), rounded));
    return _mm_and_si128(r, ordered);
}

// y = x 2^-sf in float.  A product beyond the float range becomes infinity
// (which saturates) and one that loses bits to underflow is below 2^-126
// (which rounds to 0), so the float product rounds like the exact one.
// Scale factors beyond +-126 take two steps, each a normal power of two;
// a step that overflows or underflows already decides the result.
inline void toIntKernel(const Vek32f* src, Vek32s* dst, int len, int scaleFactor) {
    const int sf = clampScale(scaleFactor);
    const int first = (sf >= -126 && sf <= 126) ? sf : sf / 2;
    const __m128 scale1 = _mm_set1_ps(floatPowerOfTwo(first)), scale2 = _mm_set1_ps(floatPowerOfTwo(sf - first));
    forEachBlock<8>(
        len,
        [scale1, scale2](Vek32s* out, const Vek32f* in) {
            const __m128 a = _mm_mul_ps(_mm_mul_ps(load128f(in), scale1), scale2);
            const __m128 b = _mm_mul_ps(_mm_mul_ps(load128f(in + 4), scale1), scale2);
            store(out, saturateToInt32(a, roundNearestEven(a)));
            store(out + 4, saturateToInt32(b, roundNearestEven(b)));
        },
        dst, src);
}

}  // namespace

#endif
