// Kernels of the shift, conversion and threshold family for the SIMD
// levels, one template per algorithm, written on the lane words of
// core/simd_lanes.h so that each level runs them on its widest vector.
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; everything here has internal
// linkage (unnamed namespace), so each level gets its own copy built with
// its own instruction set.  __SSE4_1__ picks the signed 32-bit min/max and
// the rounding instruction where the level has them.
//
// Each kernel works blocks of one or two vectors through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack.
#ifndef VEK_SIGNAL_VECTOR_SIMD_H
#define VEK_SIGNAL_VECTOR_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "core/simd_lanes.h"

namespace {

using V = WideI;
using F = WideF;
constexpr int kLanes32 = sizeof(V) / 4;  // 32-bit lanes of a vector

// ---- shifts: two vectors per block ------------------------------------------

inline V shiftLeft(const Vek16s*, V v, __m128i count) { return sll16(v, count); }
inline V shiftLeft(const Vek32s*, V v, __m128i count) { return sll32(v, count); }
inline V shiftRight(const Vek16s*, V v, __m128i count) { return sra16(v, count); }
inline V shiftRight(const Vek32s*, V v, __m128i count) { return sra32(v, count); }

template <class T>
void shiftLeftKernel(const T* src, T* dst, int len, int shift) {
    constexpr int W = sizeof(V) / sizeof(T);
    const __m128i count = _mm_cvtsi32_si128(shift);
    forEachBlock<2 * W>(
        len,
        [count](T* out, const T* in) {
            const V a = loadAs<V>(in), b = loadAs<V>(in + W);
            store(out, shiftLeft(in, a, count));
            store(out + W, shiftLeft(in, b, count));
        },
        dst, src);
}

template <class T>
void shiftRightKernel(const T* src, T* dst, int len, int shift) {
    constexpr int W = sizeof(V) / sizeof(T);
    const __m128i count = _mm_cvtsi32_si128(shift);
    forEachBlock<2 * W>(
        len,
        [count](T* out, const T* in) {
            const V a = loadAs<V>(in), b = loadAs<V>(in + W);
            store(out, shiftRight(in, a, count));
            store(out + W, shiftRight(in, b, count));
        },
        dst, src);
}

// ---- integer widening and narrowing -------------------------------------------

inline void widenKernel(const Vek16s* src, Vek32s* dst, int len) {
    forEachBlock<2 * kLanes32>(
        len,
        [](Vek32s* out, const Vek16s* in) {
            store(out, loadExtend<V, Vek16s, Vek32s>(in));
            store(out + kLanes32, loadExtend<V, Vek16s, Vek32s>(in + kLanes32));
        },
        dst, src);
}

inline void narrowKernel(const Vek32s* src, Vek16s* dst, int len) {
    forEachBlock<4 * kLanes32>(
        len,
        [](Vek16s* out, const Vek32s* in) {
            store(out, packs32Ordered(loadAs<V>(in), loadAs<V>(in + kLanes32)));
            store(out + 2 * kLanes32, packs32Ordered(loadAs<V>(in + 2 * kLanes32), loadAs<V>(in + 3 * kLanes32)));
        },
        dst, src);
}

// ---- thresholds ------------------------------------------------------------------

struct Above {  // v > level becomes level
    static V clamp(V v, V level) {
#ifdef __SSE4_1__
        return min32(v, level);
#else
        return select(cmpgt32(v, level), level, v);
#endif
    }
};
struct Below {  // v < level becomes level
    static V clamp(V v, V level) {
#ifdef __SSE4_1__
        return max32(v, level);
#else
        return select(cmpgt32(level, v), level, v);
#endif
    }
};

template <class Side>
void thresholdKernel(Vek32s* srcDst, int len, Vek32s level) {
    const V l = splat<V>(level);
    forEachBlock<2 * kLanes32>(
        len,
        [l](Vek32s* out, const Vek32s* in) {
            const V a = loadAs<V>(in), b = loadAs<V>(in + kLanes32);
            store(out, Side::clamp(a, l));
            store(out + kLanes32, Side::clamp(b, l));
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
// double and rounded once to float, four at a time at every level (a rare
// case, kept short).
inline void toFloatKernel(const Vek32s* src, Vek32f* dst, int len, int scaleFactor) {
    const int sf = clampScale(scaleFactor);
    if (sf >= -126 && sf <= 126) {
        const F scale = splat<F>(floatPowerOfTwo(sf));
        forEachBlock<2 * kLanes32>(
            len,
            [scale](Vek32f* out, const Vek32s* in) {
                store(out, mulF(toFloat(loadAs<V>(in)), scale));
                store(out + kLanes32, mulF(toFloat(loadAs<V>(in + kLanes32)), scale));
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
inline V roundNearestEven(F y) {
#ifdef __SSE4_1__
    return truncateToInt(roundNearestF(y));
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
inline V saturateToInt32(F y, V rounded) {
    const F limit = splat<F>(2147483648.0f);
    const V r = select(intMask(cmpgeF(y, limit)), splat<V>(Vek32s(INT32_MAX)),
                       select(intMask(cmpltF(y, subF(zero<F>(), limit))), splat<V>(Vek32s(INT32_MIN)), rounded));
    return select(intMask(cmpordF(y, y)), r, zero<V>());
}

// y = x 2^-sf in float.  A product beyond the float range becomes infinity
// (which saturates) and one that loses bits to underflow is below 2^-126
// (which rounds to 0), so the float product rounds like the exact one.
// Scale factors beyond +-126 take two steps, each a normal power of two;
// a step that overflows or underflows already decides the result.
inline void toIntKernel(const Vek32f* src, Vek32s* dst, int len, int scaleFactor) {
    const int sf = clampScale(scaleFactor);
    const int first = (sf >= -126 && sf <= 126) ? sf : sf / 2;
    const F scale1 = splat<F>(floatPowerOfTwo(first)), scale2 = splat<F>(floatPowerOfTwo(sf - first));
    forEachBlock<2 * kLanes32>(
        len,
        [scale1, scale2](Vek32s* out, const Vek32f* in) {
            const F a = mulF(mulF(loadAs<F>(in), scale1), scale2);
            const F b = mulF(mulF(loadAs<F>(in + kLanes32), scale1), scale2);
            store(out, saturateToInt32(a, roundNearestEven(a)));
            store(out + kLanes32, saturateToInt32(b, roundNearestEven(b)));
        },
        dst, src);
}

}  // namespace

#endif
