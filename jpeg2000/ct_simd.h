// Component transform kernels for the SIMD levels, one template over the
// level's vector types.
//
// Included by each SIMD level's translation unit inside its namespace,
// after the level names its vectors:
//   IntVec (__m128i, __m256i or __m512i), FloatVec, DoubleVec.
// The RCT works in lanes of the sample's width with exact floor-halving
// words (no overflow, so no widening); the 16-bit ICT multiplies pairs of
// samples by pairs of Q14 constants (pmaddwd), the rounding half riding in
// one pair; the 32-bit ICT forms 64-bit products (j2k_vectors.h); the
// float ICT converts to double, works in the order of the plain level and
// rounds once to float.  Interleaved pixels are taken apart and put
// together with 32-bit shuffles, four pixels (one 128-bit group) at a time.
//
// Rows go block by block; the last, partial block goes through zeroed
// copies on the stack, so no access passes the caller's rows.
#ifndef VEK_JPEG2000_CT_SIMD_H
#define VEK_JPEG2000_CT_SIMD_H

#include "core/simd_vocabulary.h"
#include "jpeg2000/j2k_vectors.h"

namespace {

// ---- the block loops ------------------------------------------------------------

// block(out...) over n pixels: N pixels a call, each stream holding `width`
// samples a pixel; the streams in `ins` are read, those in `outs` written
// after (an in-place stream is in both).  The partial block works on stack
// copies.
template <size_t N, class T, class Block>
inline void forEachPixelBlock(size_t n, Block block, T* const* streams, const int* widths, int count,
                              unsigned outMask) {
    size_t i = 0;
    T* at[4];
    for (; i + N <= n; i += N) {
        for (int s = 0; s < count; ++s) at[s] = streams[s] + i * widths[s];
        block(at);
    }
    if (i == n) return;
    const size_t rest = n - i;
    T copies[4][3 * N] = {};
    for (int s = 0; s < count; ++s) {
        at[s] = copies[s];
        memcpy(copies[s], streams[s] + i * widths[s], rest * widths[s] * sizeof(T));
    }
    block(at);
    for (int s = 0; s < count; ++s)
        if (outMask & (1u << s)) memcpy(streams[s] + i * widths[s], copies[s], rest * widths[s] * sizeof(T));
}

template <class T>
constexpr size_t pixelsPerBlock() {
    return sizeof(IntVec) / sizeof(T);
}

// ---- four interleaved pixels of 32-bit samples --------------------------------------

// Lanes i, i, j, j of (a, b), then lanes 0 and 2 of two such: one channel of
// four pixels from three vectors.
template <int i, int j>
inline __m128 pairOf(__m128 a, __m128 b) {
    return _mm_shuffle_ps(a, b, _MM_SHUFFLE(j, j, i, i));
}
inline __m128 evenLanes(__m128 x, __m128 y) { return _mm_shuffle_ps(x, y, _MM_SHUFFLE(2, 0, 2, 0)); }

inline void splitPixels4(const void* px, __m128& c0, __m128& c1, __m128& c2) {
    const __m128 v0 = load128f(px), v1 = load128f(static_cast<const float*>(px) + 4),
                 v2 = load128f(static_cast<const float*>(px) + 8);
    // channel c of pixel p is sample 3p + c: vector (3p + c) / 4, lane (3p + c) % 4
    c0 = evenLanes(pairOf<0, 3>(v0, v0), pairOf<2, 1>(v1, v2));
    c1 = evenLanes(pairOf<1, 0>(v0, v1), pairOf<3, 2>(v1, v2));
    c2 = evenLanes(pairOf<2, 1>(v0, v1), pairOf<0, 3>(v2, v2));
}
inline void joinPixels4(__m128 c0, __m128 c1, __m128 c2, void* px) {
    float* out = static_cast<float*>(px);
    store(out, evenLanes(pairOf<0, 0>(c0, c1), pairOf<0, 1>(c2, c0)));
    store(out + 4, evenLanes(pairOf<1, 1>(c1, c2), pairOf<2, 2>(c0, c1)));
    store(out + 8, evenLanes(pairOf<2, 3>(c2, c0), pairOf<3, 3>(c1, c2)));
}

// The same over a whole vector of pixels, one 128-bit group after another.
inline void splitPixels(const void* px, __m128& c0, __m128& c1, __m128& c2) { splitPixels4(px, c0, c1, c2); }
inline void joinPixels(__m128 c0, __m128 c1, __m128 c2, void* px) { joinPixels4(c0, c1, c2, px); }
#ifdef __AVX2__
inline void splitPixels(const void* px, __m256& c0, __m256& c1, __m256& c2) {
    __m128 a0, a1, a2, b0, b1, b2;
    splitPixels4(px, a0, a1, a2);
    splitPixels4(static_cast<const float*>(px) + 12, b0, b1, b2);
    c0 = _mm256_set_m128(b0, a0), c1 = _mm256_set_m128(b1, a1), c2 = _mm256_set_m128(b2, a2);
}
inline void joinPixels(__m256 c0, __m256 c1, __m256 c2, void* px) {
    joinPixels4(_mm256_castps256_ps128(c0), _mm256_castps256_ps128(c1), _mm256_castps256_ps128(c2), px);
    joinPixels4(_mm256_extractf128_ps(c0, 1), _mm256_extractf128_ps(c1, 1), _mm256_extractf128_ps(c2, 1),
                static_cast<float*>(px) + 12);
}
#endif
#ifdef __AVX512F__
inline void splitPixels(const void* px, __m512& c0, __m512& c1, __m512& c2) {
    __m256 lo0, lo1, lo2, hi0, hi1, hi2;
    splitPixels(px, lo0, lo1, lo2);
    splitPixels(static_cast<const float*>(px) + 24, hi0, hi1, hi2);
    auto join = [](__m256 lo, __m256 hi) {
        return _mm512_castpd_ps(
            _mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(lo)), _mm256_castps_pd(hi), 1));
    };
    c0 = join(lo0, hi0), c1 = join(lo1, hi1), c2 = join(lo2, hi2);
}
inline void joinPixels(__m512 c0, __m512 c1, __m512 c2, void* px) {
    auto lo = [](__m512 v) { return _mm512_castps512_ps256(v); };
    auto hi = [](__m512 v) { return _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(v), 1)); };
    joinPixels(lo(c0), lo(c1), lo(c2), px);
    joinPixels(hi(c0), hi(c1), hi(c2), static_cast<float*>(px) + 24);
}
#endif

inline __m128i asInt(__m128 v) { return _mm_castps_si128(v); }
inline __m128 asFloat(__m128i v) { return _mm_castsi128_ps(v); }
#ifdef __AVX2__
inline __m256i asInt(__m256 v) { return _mm256_castps_si256(v); }
inline __m256 asFloat(__m256i v) { return _mm256_castsi256_ps(v); }
#endif
#ifdef __AVX512F__
inline __m512i asInt(__m512 v) { return _mm512_castps_si512(v); }
inline __m512 asFloat(__m512i v) { return _mm512_castsi512_ps(v); }
#endif

// ---- one vector of pixels ---------------------------------------------------------

template <class T>
struct Rct;
template <>
struct Rct<Vek16s> {
    template <class V>
    static void forward(V& p0, V& p1, V& p2) {
        const V r = p0, g = p1, b = p2;
        p0 = floorHalfSum16(floorHalfSum16(r, b), g);  // floor((r + 2g + b) / 4)
        p1 = sub16(b, g);
        p2 = sub16(r, g);
    }
    template <class V>
    static void inverse(V& p0, V& p1, V& p2) {
        const V y = p0, u = p1, v = p2;
        const V g = sub16(y, sra16<1>(floorHalfSum16(u, v)));  // floor((u + v) / 4)
        p0 = add16(v, g);
        p1 = g;
        p2 = add16(u, g);
    }
};
template <>
struct Rct<Vek32s> {
    template <class V>
    static void forward(V& p0, V& p1, V& p2) {
        const V r = p0, g = p1, b = p2;
        p0 = floorHalfSum32(floorHalfSum32(r, b), g);
        p1 = sub32(b, g);
        p2 = sub32(r, g);
    }
    template <class V>
    static void inverse(V& p0, V& p1, V& p2) {
        const V y = p0, u = p1, v = p2;
        const V g = sub32(y, sra32<1>(floorHalfSum32(u, v)));
        p0 = add32(v, g);
        p1 = g;
        p2 = add32(u, g);
    }
};

template <class T>
struct Ict;
template <>
struct Ict<Vek16s> {
    // (c0 a + c1 b + c2 c + 8192) >> 14 of 16-bit lanes, reduced to 16 bits.
    template <class V>
    static V q14(V a, V b, V c, int c0, int c1, int c2) {
        const V k01 = pairConstant<V>(c0, c1), k2 = pairConstant<V>(c2, 8192), one = splat16<V>(1);
        const V lo = add32(madd16(unpackLo16(a, b), k01), madd16(unpackLo16(c, one), k2));
        const V hi = add32(madd16(unpackHi16(a, b), k01), madd16(unpackHi16(c, one), k2));
        return packSat32(low16(sra32<14>(lo)), low16(sra32<14>(hi)));
    }
    template <class V>
    static void forward(V& p0, V& p1, V& p2) {
        const V r = p0, g = p1, b = p2;
        p0 = q14(r, g, b, 4899, 9617, 1868);
        p1 = q14(r, g, b, -2765, -5427, 8192);
        p2 = q14(r, g, b, 8192, -6860, -1332);
    }
    template <class V>
    static void inverse(V& p0, V& p1, V& p2) {
        const V y = p0, cb = p1, cr = p2, zero = splat16<V>(0);
        p0 = add16(y, q14(cr, zero, zero, 22970, 0, 0));
        p1 = add16(y, q14(cb, cr, zero, -5638, -11700, 0));
        p2 = add16(y, q14(cb, zero, zero, 29032, 0, 0));
    }
};
template <>
struct Ict<Vek32s> {
    // (c0 a + c1 b + c2 c + 8192) >> 14 with 64-bit products, reduced to 32
    // bits; a zero constant's term is left out.
    template <class V>
    static V q14(V a, V b, V c, int c0, int c1, int c2) {
        V even = splat64<V>(0), odd = even, e, o;
        const V x[3] = {a, b, c};
        const int k[3] = {c0, c1, c2};
        for (int t = 0; t < 3; ++t) {
            if (k[t] == 0) continue;
            mulWideLanes(x[t], splat32<V>(k[t]), e, o);
            even = add64(even, e), odd = add64(odd, o);
        }
        return roundWide<14>(even, odd);
    }
    template <class V>
    static void forward(V& p0, V& p1, V& p2) {
        const V r = p0, g = p1, b = p2;
        p0 = q14(r, g, b, 4899, 9617, 1868);
        p1 = q14(r, g, b, -2765, -5427, 8192);
        p2 = q14(r, g, b, 8192, -6860, -1332);
    }
    template <class V>
    static void inverse(V& p0, V& p1, V& p2) {
        const V y = p0, cb = p1, cr = p2;
        p0 = add32(y, q14(cr, cr, cr, 22970, 0, 0));
        p1 = add32(y, q14(cb, cr, cr, -5638, -11700, 0));
        p2 = add32(y, q14(cb, cb, cb, 29032, 0, 0));
    }
};
template <>
struct Ict<Vek32f> {
    // Works on the float vector's two halves as doubles, then rounds once.
    template <class V, class Pixel>
    static void inDoubles(V& p0, V& p1, V& p2, Pixel pixel) {
        DoubleVec a[2], b[2], c[2];
        widen(p0, a[0], a[1]);
        widen(p1, b[0], b[1]);
        widen(p2, c[0], c[1]);
        for (int h = 0; h < 2; ++h) pixel(a[h], b[h], c[h]);
        p0 = narrow(a[0], a[1]), p1 = narrow(b[0], b[1]), p2 = narrow(c[0], c[1]);
    }
    // ((k0 x + k1 y) + k2 z), each operation rounded to double.
    static DoubleVec sum3(DoubleVec x, DoubleVec y, DoubleVec z, double k0, double k1, double k2) {
        return add(add(mul(splatD<DoubleVec>(k0), x), mul(splatD<DoubleVec>(k1), y)), mul(splatD<DoubleVec>(k2), z));
    }
    template <class V>
    static void forward(V& p0, V& p1, V& p2) {
        inDoubles(p0, p1, p2, [](DoubleVec& r, DoubleVec& g, DoubleVec& b) {
            const DoubleVec y = sum3(r, g, b, 0.299, 0.587, 0.114), cb = sum3(r, g, b, -0.16875, -0.33126, 0.5);
            b = sum3(r, g, b, 0.5, -0.41869, -0.08131);
            r = y, g = cb;
        });
    }
    template <class V>
    static void inverse(V& p0, V& p1, V& p2) {
        inDoubles(p0, p1, p2, [](DoubleVec& y, DoubleVec& cb, DoubleVec& cr) {
            const DoubleVec r = add(y, mul(splatD<DoubleVec>(1.402), cr));
            const DoubleVec g = add(add(y, mul(splatD<DoubleVec>(-0.34413), cb)), mul(splatD<DoubleVec>(-0.71414), cr));
            const DoubleVec b = add(y, mul(splatD<DoubleVec>(1.772), cb));
            y = r, cb = g, cr = b;
        });
    }
};

// The vector a sample type works in.
template <class T>
struct SampleVec {
    using type = IntVec;
};
template <>
struct SampleVec<Vek32f> {
    using type = FloatVec;
};
template <class T>
using VecOf = typename SampleVec<T>::type;

template <class T>
inline VecOf<T> loadSamples(const T* p) {
    if constexpr (std::is_floating_point_v<T>)
        return loadF<FloatVec>(p);
    else
        return loadI<IntVec>(p);
}

// ---- rows ------------------------------------------------------------------------

template <class T, class Transform>
inline void planesRow(T* p0, T* p1, T* p2, size_t n, Transform transform) {
    T* const streams[3] = {p0, p1, p2};
    const int widths[3] = {1, 1, 1};
    forEachPixelBlock<pixelsPerBlock<T>()>(
        n,
        [&](T* const* at) {
            VecOf<T> a = loadSamples(at[0]), b = loadSamples(at[1]), c = loadSamples(at[2]);
            transform(a, b, c);
            store(at[0], a), store(at[1], b), store(at[2], c);
        },
        streams, widths, 3, 7u);
}

// 32-bit samples of interleaved pixels, seen as float bits while they are
// shuffled.
template <class T>
inline void splitSamples(const T* px, VecOf<T>& a, VecOf<T>& b, VecOf<T>& c) {
    FloatVec x, y, z;
    splitPixels(px, x, y, z);
    if constexpr (std::is_floating_point_v<T>)
        a = x, b = y, c = z;
    else
        a = asInt(x), b = asInt(y), c = asInt(z);
}
template <class T>
inline void joinSamples(VecOf<T> a, VecOf<T> b, VecOf<T> c, T* px) {
    if constexpr (std::is_floating_point_v<T>)
        joinPixels(a, b, c, px);
    else
        joinPixels(asFloat(a), asFloat(b), asFloat(c), px);
}

template <class T, class Transform>
inline void fromPixelsRow(const T* pixels, T* p0, T* p1, T* p2, size_t n, Transform transform) {
    T* const streams[4] = {const_cast<T*>(pixels), p0, p1, p2};  // the pixels are only read
    const int widths[4] = {3, 1, 1, 1};
    forEachPixelBlock<pixelsPerBlock<T>()>(
        n,
        [&](T* const* at) {
            VecOf<T> a, b, c;
            splitSamples<T>(at[0], a, b, c);
            transform(a, b, c);
            store(at[1], a), store(at[2], b), store(at[3], c);
        },
        streams, widths, 4, 14u);
}
template <class T, class Transform>
inline void toPixelsRow(const T* p0, const T* p1, const T* p2, T* pixels, size_t n, Transform transform) {
    T* const streams[4] = {const_cast<T*>(p0), const_cast<T*>(p1), const_cast<T*>(p2), pixels};
    const int widths[4] = {1, 1, 1, 3};
    forEachPixelBlock<pixelsPerBlock<T>()>(
        n,
        [&](T* const* at) {
            VecOf<T> a = loadSamples(at[0]), b = loadSamples(at[1]), c = loadSamples(at[2]);
            transform(a, b, c);
            joinSamples<T>(a, b, c, at[3]);
        },
        streams, widths, 4, 8u);
}

template <class T>
void rctForward(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Rct<T>::forward(a, b, c); });
}
template <class T>
void rctInverse(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Rct<T>::inverse(a, b, c); });
}
template <class T>
void ictForward(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Ict<T>::forward(a, b, c); });
}
template <class T>
void ictInverse(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Ict<T>::inverse(a, b, c); });
}
template <class T>
void rctForwardFromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n) {
    fromPixelsRow(pixels, p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Rct<T>::forward(a, b, c); });
}
template <class T>
void rctInverseToPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n) {
    toPixelsRow(p0, p1, p2, pixels, n, [](auto& a, auto& b, auto& c) { Rct<T>::inverse(a, b, c); });
}
template <class T>
void ictForwardFromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n) {
    fromPixelsRow(pixels, p0, p1, p2, n, [](auto& a, auto& b, auto& c) { Ict<T>::forward(a, b, c); });
}
template <class T>
void ictInverseToPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n) {
    toPixelsRow(p0, p1, p2, pixels, n, [](auto& a, auto& b, auto& c) { Ict<T>::inverse(a, b, c); });
}

}  // namespace

#endif
