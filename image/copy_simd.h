// Vector kernels of the image copy family for the SIMD levels.
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after <immintrin.h> and image/copy_rows.h, whose Vec... and
// RevBlock templates it specialises; everything has internal linkage, so no
// kernel built for one level leaks into another.  What a level may use is
// read from the compiler's own macros:
//   SSE    32-bit lane shuffles (SHUFPS): 32-bit mirrors, planar 32f copies;
//   SSE2   16-bit word shuffles (PSHUFLW/PSHUFHW/PSHUFD): 8- and 16-bit
//          mirrors of one channel; masked stores for AC4 and C3C; fills;
//   SSSE3  byte shuffles (PSHUFB): three-channel 8- and 16-bit mirrors,
//          channel swaps, planar 8u and 16s copies;
//   AVX2, AVX-512  the fills and masked copies on the level's widest vector
//          (core/simd_lanes.h), and one-channel mirrors that reverse a
//          whole wide register (a reversal inside each 128-bit lane, then
//          of the lanes; 16- and 32-bit elements at 512 bits in one
//          VPERMW/VPERMD).
// The permutations are described by index maps (output position -> input
// position) from which the shuffle controls are computed at compile time.
#ifndef VEK_IMAGE_COPY_SIMD_H
#define VEK_IMAGE_COPY_SIMD_H

#include "core/simd_vocabulary.h"
#include "core/simd_lanes.h"

namespace {

// A store that bypasses the cache when the row loop asks for it.
template <class V>
inline void storeOrStream(void* p, V v, std::false_type) {
    store(p, v);
}
template <class V>
inline void storeOrStream(void* p, V v, std::true_type) {
    storeStreaming(p, v);
}

// ---- index maps -------------------------------------------------------------------
// src(q): which input element feeds output element q, elements counted
// across the K registers of a block.

// Reverse the order of pixels of B elements in a block of K registers of
// E-element lanes (E elements per register).
template <int PixelElements, int ElementsPerRegister, int K>
struct ReversePixels {
    static constexpr int kPixels = ElementsPerRegister * K / PixelElements;
    static constexpr int src(int q) { return PixelElements * (kPixels - 1 - q / PixelElements) + q % PixelElements; }
};
// Three planes (one register each, N samples of `Bytes` bytes) into three
// registers of interleaved samples; counted in bytes.
template <int Bytes>
struct InterleaveBytes {
    static constexpr int src(int q) {
        const int sample = q / Bytes, byte = q % Bytes;
        return (sample % 3) * 16 + (sample / 3) * Bytes + byte;
    }
};
// The same for 32-bit lanes, and its inverse.
struct InterleaveLanes {
    static constexpr int src(int q) { return (q % 3) * 4 + q / 3; }
};
struct DeinterleaveLanes {
    static constexpr int src(int q) { return 3 * (q % 4) + q / 4; }
};

// ---- 32-bit lane permutation of K registers (SHUFPS) -----------------------------
// Each output register takes its lanes in two pairs; a pair from one input
// register needs no shuffle of its own, so a reversal of one register is a
// single SHUFPS.
template <class Map, int K>
struct LanePermute {
    template <int J>
    static __m128 outRegister(const __m128* in) {
        constexpr int s0 = Map::src(4 * J), s1 = Map::src(4 * J + 1);
        constexpr int s2 = Map::src(4 * J + 2), s3 = Map::src(4 * J + 3);
        constexpr bool loOne = s0 / 4 == s1 / 4, hiOne = s2 / 4 == s3 / 4;
        __m128 lo = in[s0 / 4], hi = in[s2 / 4];
        if constexpr (!loOne) lo = _mm_shuffle_ps(in[s0 / 4], in[s1 / 4], _MM_SHUFFLE(0, s1 % 4, 0, s0 % 4));
        if constexpr (!hiOne) hi = _mm_shuffle_ps(in[s2 / 4], in[s3 / 4], _MM_SHUFFLE(0, s3 % 4, 0, s2 % 4));
        constexpr int i0 = loOne ? s0 % 4 : 0, i1 = loOne ? s1 % 4 : 2;
        constexpr int i2 = hiOne ? s2 % 4 : 0, i3 = hiOne ? s3 % 4 : 2;
        return _mm_shuffle_ps(lo, hi, _MM_SHUFFLE(i3, i2, i1, i0));
    }
    template <size_t... J>
    static void apply(const __m128* in, __m128* out, std::index_sequence<J...>) {
        ((out[J] = outRegister<J>(in)), ...);
    }
    static void apply(const __m128* in, __m128* out) { apply(in, out, std::make_index_sequence<K>()); }
};

#ifdef __SSSE3__
// ---- byte permutation of K registers (PSHUFB) ------------------------------------
// Output register j is the OR of one PSHUFB per input register that feeds it.
template <class Map, int K>
struct BytePermute {
    struct Controls {
        alignas(16) signed char bytes[K][K][16];
        bool used[K][K];
    };
    static constexpr Controls make() {
        Controls r{};
        for (int j = 0; j < K; ++j)
            for (int k = 0; k < K; ++k)
                for (int b = 0; b < 16; ++b) {
                    const int s = Map::src(16 * j + b);
                    const bool here = s / 16 == k;
                    r.bytes[j][k][b] = static_cast<signed char>(here ? s % 16 : -128);
                    r.used[j][k] = r.used[j][k] || here;
                }
        return r;
    }
    static constexpr Controls kControls = make();

    template <int J, size_t... I>
    static __m128i outRegister(const __m128i* in, std::index_sequence<I...>) {
        __m128i acc = _mm_setzero_si128();
        ((acc = kControls.used[J][I]
                    ? _mm_or_si128(acc, _mm_shuffle_epi8(in[I], loadAligned128i(kControls.bytes[J][I])))
                    : acc),
         ...);
        return acc;
    }
    template <size_t... J>
    static void apply(const __m128i* in, __m128i* out, std::index_sequence<J...>) {
        ((out[J] = outRegister<J>(in, std::make_index_sequence<K>())), ...);
    }
    static void apply(const __m128i* in, __m128i* out) { apply(in, out, std::make_index_sequence<K>()); }
};
#endif

// ---- mirrors ----------------------------------------------------------------------

// 32-bit samples (integer or float, moved as bits): one register of four
// pixels of one channel, or three registers of four pixels of three.
template <int C>
struct LaneReverse {
    static constexpr int K = C == 1 ? 1 : 3;
    static constexpr int kPixels = 4 * K / C;
    struct Block {
        __m128 v[K];
    };
    static Block load(const void* p) {
        Block b;
        for (int k = 0; k < K; ++k) b.v[k] = load128f(static_cast<const float*>(p) + 4 * k);
        return b;
    }
    static void storeReversed(void* p, const Block& b) {
        __m128 out[K];
        LanePermute<ReversePixels<C, 4, K>, K>::apply(b.v, out);
        for (int k = 0; k < K; ++k) store(static_cast<float*>(p) + 4 * k, out[k]);
    }
};
#ifndef __AVX2__
template <>
struct RevBlock<4, 1> : LaneReverse<1> {};
template <>
struct RevBlock<4, 3> : LaneReverse<3> {};
#endif

#ifdef __SSE2__
// One register of 8- or 16-bit samples of one channel, reversed with word
// shuffles (and, for bytes, a swap of the bytes of each word).
template <int S>
struct WordReverse {
    static constexpr int kPixels = 16 / S;
    struct Block {
        __m128i v;
    };
    static Block load(const void* p) { return {load128i(p)}; }
    static void storeReversed(void* p, const Block& b) {
        __m128i v = _mm_shufflelo_epi16(b.v, _MM_SHUFFLE(0, 1, 2, 3));
        v = _mm_shufflehi_epi16(v, _MM_SHUFFLE(0, 1, 2, 3));
        v = _mm_shuffle_epi32(v, _MM_SHUFFLE(1, 0, 3, 2));
        if constexpr (S == 1) v = _mm_or_si128(_mm_slli_epi16(v, 8), _mm_srli_epi16(v, 8));
        store(p, v);
    }
};
#endif

#ifdef __SSSE3__
// Any 8- or 16-bit layout: one register for one channel, three registers
// (a whole number of three-channel pixels) for three.
template <int S, int C>
struct ByteReverse {
    static constexpr int K = C == 1 ? 1 : 3;
    static constexpr int kPixels = 16 * K / (S * C);
    struct Block {
        __m128i v[K];
    };
    static Block load(const void* p) {
        Block b;
        for (int k = 0; k < K; ++k) b.v[k] = load128i(static_cast<const unsigned char*>(p) + 16 * k);
        return b;
    }
    static void storeReversed(void* p, const Block& b) {
        __m128i out[K];
        BytePermute<ReversePixels<S * C, 16, K>, K>::apply(b.v, out);
        for (int k = 0; k < K; ++k) store(static_cast<unsigned char*>(p) + 16 * k, out[k]);
    }
};
// Three-channel 16-bit pixels go two at a time: a pair is 12 bytes, so a
// 16-byte load that ends where a pair ends (or starts where it starts) holds
// it whole, and one PSHUFB puts its two pixels in reverse order in the
// register's first 12 bytes, the last four zero.  Three registers' worth of
// two-source shuffles would cost almost twice the PSHUFBs.
alignas(16) constexpr signed char kPairFromEnd[16] = {10, 11, 12, 13, 14, 15, 4, 5, 6, 7, 8, 9, -128, -128, -128, -128};
alignas(16) constexpr signed char kPairFromStart[16] = {6, 7, 8, 9, 10, 11, 0, 1, 2, 3, 4, 5, -128, -128, -128, -128};
inline __m128i reversedPair(const unsigned char* pairEnd) {
    return _mm_shuffle_epi8(load128i(pairEnd - 16), load128i(kPairFromEnd));
}

// Eight pixels (48 bytes) as four reversed pairs, reversed as they are
// loaded.  Both halves touch only the block's own bytes, which the in-place
// exchange needs: the last pair is stored as the block's last 16 bytes,
// behind the four bytes of the third pair that its own store leaves zero.
struct PairReverse16C3 {
    static constexpr int kPixels = 8;
    struct Block {
        __m128i pair[4];
    };
    static Block load(const void* p) {
        const auto* s = static_cast<const unsigned char*>(p);
        return {{reversedPair(s + 48), reversedPair(s + 36), reversedPair(s + 24),
                 _mm_shuffle_epi8(load128i(s), load128i(kPairFromStart))}};
    }
    static void storeReversed(void* p, const Block& b) {
        auto* d = static_cast<unsigned char*>(p);
        store(d, b.pair[0]);
        store(d + 12, b.pair[1]);
        store(d + 24, b.pair[2]);
        store(d + 32, _mm_or_si128(_mm_srli_si128(b.pair[2], 8), _mm_slli_si128(b.pair[3], 4)));
    }
};
#    ifndef __AVX2__
template <>
struct RevBlock<1, 1> : ByteReverse<1, 1> {};
template <>
struct RevBlock<2, 1> : ByteReverse<2, 1> {};
#    endif
template <>
struct RevBlock<1, 3> : ByteReverse<1, 3> {};
#    ifndef __AVX512BW__
template <>
struct RevBlock<2, 3> : PairReverse16C3 {};
#    endif
#elif defined(__SSE2__)
template <>
struct RevBlock<1, 1> : WordReverse<1> {};
template <>
struct RevBlock<2, 1> : WordReverse<2> {};
#endif

#ifdef __AVX2__
// One-channel samples of S bytes, a whole register of them reversed.
template <int S>
inline __m256i reversed(__m256i v) {
    if constexpr (S == 4) return _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
    const __m256i inLane = S == 1 ? _mm256_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13,
                                                     12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0)
                                  : _mm256_setr_epi8(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1, 14, 15, 12,
                                                     13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1);
    return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(v, inLane), 0x4E);
}
#    if defined(__AVX512F__) && defined(__AVX512BW__)
template <int S>
inline __m512i reversed(__m512i v) {
    if constexpr (S == 4)
        return _mm512_permutexvar_epi32(_mm512_setr_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0), v);
    if constexpr (S == 2)
        return _mm512_permutexvar_epi16(_mm512_set_epi16(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                                                         18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31),
                                        v);
    // Bytes: no byte permutation across lanes below VBMI, so reverse inside
    // the lanes, then the lanes.
    const __m512i inLane = _mm512_broadcast_i32x4(_mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
    const __m512i bytes = _mm512_shuffle_epi8(v, inLane);
    return _mm512_shuffle_i64x2(bytes, bytes, _MM_SHUFFLE(0, 1, 2, 3));
}
#    endif

template <int S>
struct WideReverse {
    static constexpr int kPixels = sizeof(WideI) / S;
    struct Block {
        WideI v;
    };
    static Block load(const void* p) { return {loadAs<WideI>(p)}; }
    static void storeReversed(void* p, const Block& b) { store(p, reversed<S>(b.v)); }
};
template <>
struct RevBlock<1, 1> : WideReverse<1> {};
template <>
struct RevBlock<2, 1> : WideReverse<2> {};
template <>
struct RevBlock<4, 1> : WideReverse<4> {};
#endif

// ---- fills and masked copies (SSE2 and wider) ---------------------------------------------------
#ifdef __SSE2__
// The last vector may overlap the one before: it writes the same value.
// Rows shorter than the widest vector take 16-byte ones.
template <int S>
struct WideFill {
    template <class V, class T>
    static int fill(T* d, int n, T v) {
        constexpr int W = sizeof(V) / S;
        if (n < W) return 0;
        const V x = splat<V>(v);
        for (int i = 0; i + W <= n; i += W) store(d + i, x);
        store(d + n - W, x);
        return n;
    }
    template <class T>
    static int run(T* d, int n, T v) {
        const int done = fill<WideI>(d, n, v);
        return done > 0 || sizeof(WideI) == 16 ? done : fill<__m128i>(d, n, v);
    }
};
template <>
struct VecFill<2> : WideFill<2> {};
template <>
struct VecFill<4> : WideFill<4> {};

// Blocks of three vectors (16 pixels a 16-byte vector) inside the 3n - 2
// bytes the row spans, so no byte after the last written one is read or
// rewritten: wide blocks first, then 16-byte ones.
template <class V>
int64_t fillEveryThirdBlocks(Vek8u* d, int64_t o, int64_t span, Vek8u v) {
    constexpr int kBlock = 3 * sizeof(V);
    alignas(64) unsigned char mask[kBlock];
    for (int b = 0; b < kBlock; ++b) mask[b] = b % 3 == 0 ? 0xFF : 0;
    const V value = splat<V>(v);
    const auto m0 = byteMask(loadAs<V>(mask));
    const decltype(m0) m[3] = {m0, byteMask(loadAs<V>(mask + kBlock / 3)), byteMask(loadAs<V>(mask + 2 * kBlock / 3))};
    for (; o + kBlock <= span; o += kBlock)
        for (int k = 0; k < 3; ++k) {
            Vek8u* p = d + o + k * kBlock / 3;
            store(p, select(m[k], value, loadAs<V>(p)));
        }
    return o;
}
template <>
struct VecFillEveryThird<Vek8u> {
    static int run(Vek8u* d, int n, Vek8u v) {
        const int64_t span = 3 * int64_t(n) - 2;
        int64_t o = fillEveryThirdBlocks<WideI>(d, 0, span, v);
        if constexpr (sizeof(WideI) > 16) o = fillEveryThirdBlocks<__m128i>(d, o, span, v);
        return static_cast<int>(o / 3);
    }
};

// The alpha bytes are read and written back unchanged.
template <>
struct VecCopyAC4<Vek8u> {
    static int run(const Vek8u* s, Vek8u* d, int n) {
        constexpr int kPixels = sizeof(WideI) / 4;
        const auto colour = byteMask(splat<WideI>(Vek32s(0x00FFFFFF)));
        int x = 0;
        for (; x + kPixels <= n; x += kPixels) {
            store(d + 4 * x, select(colour, loadAs<WideI>(s + 4 * x), loadAs<WideI>(d + 4 * x)));
        }
        return x;
    }
};
#endif

// ---- channel swaps (SSSE3) ---------------------------------------------------------------
#ifdef __SSSE3__
// Sixteen pixels (48 bytes, three registers) at a time: every byte comes
// from its own pixel, so output register j takes bytes from input registers
// j - 1 to j + 1.  All three are loaded before any is stored, so s may equal
// d.  The controls are made once per image.
template <>
struct VecSwap3<Vek8u> {
    struct Plan {
        __m128i control[3][3];
        explicit Plan(const int* order) {
            alignas(16) signed char bytes[3][3][16];
            for (int j = 0; j < 3; ++j)
                for (int k = 0; k < 3; ++k)
                    for (int b = 0; b < 16; ++b) {
                        const int q = 16 * j + b, from = q - q % 3 + order[q % 3];
                        bytes[j][k][b] = static_cast<signed char>(from / 16 == k ? from % 16 : -128);
                    }
            for (int j = 0; j < 3; ++j)
                for (int k = 0; k < 3; ++k) control[j][k] = loadAligned128i(bytes[j][k]);
        }
    };
    static int run(const Plan& p, const Vek8u* s, Vek8u* d, int n) {
        const auto part = [&](const __m128i& v, int j, int k) { return _mm_shuffle_epi8(v, p.control[j][k]); };
        int x = 0;
        for (; x + 16 <= n; x += 16) {
            const __m128i a = load128i(s + 3 * x), b = load128i(s + 3 * x + 16), c = load128i(s + 3 * x + 32);
            store(d + 3 * x, _mm_or_si128(part(a, 0, 0), part(b, 0, 1)));
            store(d + 3 * x + 16, _mm_or_si128(_mm_or_si128(part(a, 1, 0), part(b, 1, 1)), part(c, 1, 2)));
            store(d + 3 * x + 32, _mm_or_si128(part(b, 2, 1), part(c, 2, 2)));
        }
        return x;
    }
};

// Three-channel 16-bit mirror out of place, a whole row of at least three
// pixels: reversed pairs stored 12 bytes apart, each store's four zero bytes
// rewritten by the next, four pairs to a step; then a last whole block, or
// single pairs while three pixels remain and the row's last 16 bytes, from
// the first three source pixels (18 bytes, so two loads).  No load starts
// before the row.
alignas(16) constexpr signed char kRowEndMain[16] = {12, 13, 14, 15, 4, 5, 6, 7, 8, 9, -128, -128, 0, 1, 2, 3};
alignas(16) constexpr signed char kRowEndFirst[16] = {-128, -128, -128, -128, -128, -128, -128, -128,
                                                      -128, -128, 0,    1,    -128, -128, -128, -128};
#    ifndef __AVX512BW__
template <>
struct RevOverlap<2, 3> {
    static constexpr int kPixels = 2;
    template <class T>
    static int run(const T* s, T* d, int n) {
        if (n < 3) return 0;
        const auto* from = reinterpret_cast<const unsigned char*>(s);
        auto* to = reinterpret_cast<unsigned char*>(d);
        const unsigned char* pairEnd = from + 6 * int64_t(n);
        int x = 0;
        for (; n - x > 8; x += 8, pairEnd -= 48, to += 48) {
            const __m128i p0 = reversedPair(pairEnd), p1 = reversedPair(pairEnd - 12);
            const __m128i p2 = reversedPair(pairEnd - 24), p3 = reversedPair(pairEnd - 36);
            store(to, p0);
            store(to + 12, p1);
            store(to + 24, p2);
            store(to + 36, p3);
        }
        if (n - x == 8) {  // the last block: its first pair is loaded from where it starts
            PairReverse16C3::storeReversed(to, PairReverse16C3::load(from));
            return n;
        }
        for (; n - x >= 3; x += 2, pairEnd -= 12, to += 12) store(to, reversedPair(pairEnd));
        const __m128i end = _mm_or_si128(_mm_shuffle_epi8(load128i(from + 2), load128i(kRowEndMain)),
                                         _mm_shuffle_epi8(load128i(from), load128i(kRowEndFirst)));
        store(reinterpret_cast<unsigned char*>(d) + 6 * int64_t(n) - 16, end);
        return n;
    }
};
#    endif
#endif

// ---- planar and interleaved rows ------------------------------------------------------------

// Pixels before the first whose three-channel destination is aligned to
// the vector, or -1 if none (a destination not aligned to its sample size).
template <int S, int VectorBytes>
int pixelsToAlignment(const void* d) {
    for (int h = 0; h < VectorBytes / S; ++h)
        if ((reinterpret_cast<uintptr_t>(d) + 3 * S * h) % VectorBytes == 0) return h;
    return -1;
}

// Drives a kernel over blocks of one vector's worth of pixels of each
// plane.  When streaming, a short scalar head reaches an aligned
// destination and the stores bypass the cache (then a fence orders them
// before whatever the caller does next).
template <int S, int VectorBytes, class Block, class T>
int interleaveBlocks(const T* a, const T* b, const T* c, T* d, int n, bool stream) {
    constexpr int P = VectorBytes / S;
    int x = 0;
    if (stream) {
        const int head = pixelsToAlignment<S, VectorBytes>(d);
        if (head >= 0 && head + P <= n) {
            for (; x < head; ++x) d[3 * x] = a[x], d[3 * x + 1] = b[x], d[3 * x + 2] = c[x];
            for (; x + P <= n; x += P) Block::run(a + x, b + x, c + x, d + 3 * x, std::true_type());
            _mm_sfence();
            return x;
        }
    }
    for (; x + P <= n; x += P) Block::run(a + x, b + x, c + x, d + 3 * x, std::false_type());
    return x;
}

struct InterleaveLaneBlock {
    template <class T, class Streaming>
    static void run(const T* a, const T* b, const T* c, T* d, Streaming nt) {
        const __m128 in[3] = {load128f(a), load128f(b), load128f(c)};
        __m128 out[3];
        LanePermute<InterleaveLanes, 3>::apply(in, out);
        for (int k = 0; k < 3; ++k) storeOrStream(d + 4 * k, out[k], nt);
    }
};
#ifndef __AVX2__
template <>
struct VecInterleave3<4> {
    template <class T>
    static int run(const T* a, const T* b, const T* c, T* d, int n, bool stream) {
        return interleaveBlocks<4, 16, InterleaveLaneBlock>(a, b, c, d, n, stream);
    }
};
template <>
struct VecDeinterleave3<4> {
    template <class T>
    static int run(const T* s, T* a, T* b, T* c, int n) {
        int x = 0;
        for (; x + 4 <= n; x += 4) {
            const __m128 in[3] = {load128f(s + 3 * x), load128f(s + 3 * x + 4), load128f(s + 3 * x + 8)};
            __m128 out[3];
            LanePermute<DeinterleaveLanes, 3>::apply(in, out);
            store(a + x, out[0]);
            store(b + x, out[1]);
            store(c + x, out[2]);
        }
        return x;
    }
};
#endif

#ifdef __SSSE3__
template <int S>
struct InterleaveByteBlock {
    template <class T, class Streaming>
    static void run(const T* a, const T* b, const T* c, T* d, Streaming nt) {
        const __m128i in[3] = {load128i(a), load128i(b), load128i(c)};
        __m128i out[3];
        BytePermute<InterleaveBytes<S>, 3>::apply(in, out);
        for (int k = 0; k < 3; ++k) storeOrStream(reinterpret_cast<unsigned char*>(d) + 16 * k, out[k], nt);
    }
};
template <int S>
struct ByteInterleave {
    template <class T>
    static int run(const T* a, const T* b, const T* c, T* d, int n, bool stream) {
        return interleaveBlocks<S, 16, InterleaveByteBlock<S>>(a, b, c, d, n, stream);
    }
};
template <>
struct VecInterleave3<1> : ByteInterleave<1> {};
#    ifndef __AVX512BW__
template <>
struct VecInterleave3<2> : ByteInterleave<2> {};
#    endif
#endif

// ---- wide registers: element permutations ----------------------------------------------
#ifdef __AVX2__
constexpr int kWideBytes = static_cast<int>(sizeof(WideI));

// Elements of E bytes across a wide register by an index vector: 32-bit
// elements from AVX2 (VPERMD), 16-bit ones at 512 bits (VPERMW, BW).
inline __m256i permuteElements(std::integral_constant<int, 4>, __m256i v, __m256i index) {
    return _mm256_permutevar8x32_epi32(v, index);
}
inline __m256i elementSelector(std::integral_constant<int, 4>, __m256i m) { return m; }
#    if defined(__AVX512F__) && defined(__AVX512BW__)
inline __m512i permuteElements(std::integral_constant<int, 4>, __m512i v, __m512i index) {
    return _mm512_permutexvar_epi32(index, v);
}
inline __m512i permuteElements(std::integral_constant<int, 2>, __m512i v, __m512i index) {
    return _mm512_permutexvar_epi16(index, v);
}
inline __mmask16 elementSelector(std::integral_constant<int, 4>, __m512i m) { return _mm512_movepi32_mask(m); }
inline __mmask32 elementSelector(std::integral_constant<int, 2>, __m512i m) { return _mm512_movepi16_mask(m); }
#    endif

// Any permutation (Map, counted in elements of E bytes) of K wide
// registers: output register j is a blend, over the input registers that
// feed it, of one permutation of each.  The indices and blend masks are
// computed at compile time.
template <class Map, int K, int E>
struct ElementPermute {
    static constexpr int L = kWideBytes / E;
    using Element = std::conditional_t<E == 4, int32_t, int16_t>;
    struct Controls {
        alignas(64) Element index[K][K][L];
        alignas(64) Element from[K][K][L];  // -1 where output j takes input k
        bool used[K][K];
    };
    static constexpr Controls make() {
        Controls r{};
        for (int j = 0; j < K; ++j)
            for (int k = 0; k < K; ++k)
                for (int e = 0; e < L; ++e) {
                    const int s = Map::src(L * j + e);
                    const bool here = s / L == k;
                    r.index[j][k][e] = static_cast<Element>(here ? s % L : 0);
                    r.from[j][k][e] = static_cast<Element>(here ? -1 : 0);
                    r.used[j][k] = r.used[j][k] || here;
                }
        return r;
    }
    static constexpr Controls kControls = make();
    using Size = std::integral_constant<int, E>;

    template <int J, size_t... I>
    static WideI outRegister(const WideI* in, std::index_sequence<I...>) {
        WideI acc = zero<WideI>();
        ((acc = kControls.used[J][I] ? select(elementSelector(Size(), loadAs<WideI>(kControls.from[J][I])),
                                              permuteElements(Size(), in[I], loadAs<WideI>(kControls.index[J][I])), acc)
                                     : acc),
         ...);
        return acc;
    }
    template <size_t... J>
    static void apply(const WideI* in, WideI* out, std::index_sequence<J...>) {
        ((out[J] = outRegister<J>(in, std::make_index_sequence<K>())), ...);
    }
    static void apply(const WideI* in, WideI* out) { apply(in, out, std::make_index_sequence<K>()); }
};

// Three-channel pixels of S-byte samples, three registers of them reversed.
template <int S>
struct WideReverse3 {
    static constexpr int L = kWideBytes / S;
    static constexpr int kPixels = L;
    struct Block {
        WideI v[3];
    };
    static Block load(const void* p) {
        const auto* b = static_cast<const unsigned char*>(p);
        return {{loadAs<WideI>(b), loadAs<WideI>(b + sizeof(WideI)), loadAs<WideI>(b + 2 * sizeof(WideI))}};
    }
    static void storeReversed(void* p, const Block& b) {
        WideI out[3];
        ElementPermute<ReversePixels<3, L, 3>, 3, S>::apply(b.v, out);
        auto* d = static_cast<unsigned char*>(p);
        for (int k = 0; k < 3; ++k) store(d + k * sizeof(WideI), out[k]);
    }
};

// Planar rows of S-byte samples into three-channel pixels and back.
template <int L>
struct InterleaveElements {
    static constexpr int src(int q) { return (q % 3) * L + q / 3; }
};
template <int L>
struct DeinterleaveElements {
    static constexpr int src(int q) { return 3 * (q % L) + q / L; }
};
template <int S>
struct WideInterleaveBlock {
    template <class T, class Streaming>
    static void run(const T* a, const T* b, const T* c, T* d, Streaming nt) {
        const WideI in[3] = {loadAs<WideI>(a), loadAs<WideI>(b), loadAs<WideI>(c)};
        WideI out[3];
        ElementPermute<InterleaveElements<kWideBytes / S>, 3, S>::apply(in, out);
        for (int k = 0; k < 3; ++k) storeOrStream(reinterpret_cast<unsigned char*>(d) + k * sizeof(WideI), out[k], nt);
    }
};
template <int S>
struct WideInterleave {
    template <class T>
    static int run(const T* a, const T* b, const T* c, T* d, int n, bool stream) {
        return interleaveBlocks<S, kWideBytes, WideInterleaveBlock<S>>(a, b, c, d, n, stream);
    }
};
template <int S>
struct WideDeinterleave {
    template <class T>
    static int run(const T* s, T* a, T* b, T* c, int n) {
        constexpr int P = kWideBytes / S;
        int x = 0;
        for (; x + P <= n; x += P) {
            const WideI in[3] = {loadAs<WideI>(s + 3 * x), loadAs<WideI>(s + 3 * x + P),
                                 loadAs<WideI>(s + 3 * x + 2 * P)};
            WideI out[3];
            ElementPermute<DeinterleaveElements<P>, 3, S>::apply(in, out);
            store(a + x, out[0]);
            store(b + x, out[1]);
            store(c + x, out[2]);
        }
        return x;
    }
};

template <>
struct RevBlock<4, 3> : WideReverse3<4> {};
template <>
struct VecInterleave3<4> : WideInterleave<4> {};
template <>
struct VecDeinterleave3<4> : WideDeinterleave<4> {};
#    ifdef __AVX512BW__
template <>
struct RevBlock<2, 3> : WideReverse3<2> {};
template <>
struct VecInterleave3<2> : WideInterleave<2> {};
#    endif
#endif

}  // namespace

#endif
