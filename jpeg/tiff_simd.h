// TIFF row kernels for the vector levels, written once over the vector
// type: __m128i (SSE2), __m256i (AVX2) or __m512i (AVX-512 BW).
//
// PackBits: runs and literal stretches are found by comparing a vector of
// bytes with the run byte, or with itself one byte on, and taking the first
// set bit of the mask; the last, partial vector of a scan overlaps the one
// before it, and a scan shorter than a vector goes to the next narrower
// vector (AVX-512 masks its loads instead).  Literal data and runs are
// written a vector at a time, the last vector overlapping.
//
// Byte planes: joining interleaves the two planes' bytes (unpacks), split
// packs the low and the high bytes of the samples; the 256- and 512-bit
// unpacks and packs work within 128-bit lanes, so a permutation of 64-bit
// pieces puts the samples back in order.
//
// Included inside a level's namespace after <immintrin.h> and <string.h>;
// internal linkage.
#ifndef VEK_JPEG_TIFF_SIMD_H
#define VEK_JPEG_TIFF_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// ---- bytes, by vector type --------------------------------------------------------
// Bit i set where byte i of a equals byte i of b.
inline uint64_t equalBytes(__m128i a, __m128i b) { return unsigned(_mm_movemask_epi8(_mm_cmpeq_epi8(a, b))); }
inline void loadBytes(const Vek8u* p, __m128i& v) { v = load128i(p); }
inline void broadcastBytes(Vek8u b, __m128i& v) { v = broadcast128(b); }
#ifdef __AVX2__
inline uint64_t equalBytes(__m256i a, __m256i b) { return unsigned(_mm256_movemask_epi8(_mm256_cmpeq_epi8(a, b))); }
inline void loadBytes(const Vek8u* p, __m256i& v) { v = load256i(p); }
inline void broadcastBytes(Vek8u b, __m256i& v) { v = broadcast256(b); }
#endif
#ifdef __AVX512BW__
inline uint64_t equalBytes(__m512i a, __m512i b) { return _mm512_cmpeq_epi8_mask(a, b); }
inline void loadBytes(const Vek8u* p, __m512i& v) { v = load512i(p); }
inline void broadcastBytes(Vek8u b, __m512i& v) { v = broadcast512(b); }
#endif

template <class V>
inline V bytesAt(const Vek8u* p) {
    V v;
    loadBytes(p, v);
    return v;
}
template <class V>
inline V bytesOf(Vek8u b) {
    V v;
    broadcastBytes(b, v);
    return v;
}

inline int firstBit(uint64_t mask) { return __builtin_ctzll(mask); }

// ---- the PackBits scan policy -------------------------------------------------------

// Below 16 bytes: one byte at a time, copies in 8-byte pieces.
struct SmallScan {
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        int m = 0;
        while (m < max && p[m] == b) ++m;
        return m;
    }
    static int literalSpan(const Vek8u* p, int avail, int max) {
        int k = 0;
        while (k < max && (k + 1 == avail || p[k] != p[k + 1])) ++k;
        return k;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        if (n >= 8) {  // two 8-byte moves, overlapping
            const __m128i head = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(src));
            const __m128i tail = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(src + n - 8));
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), head);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + n - 8), tail);
        } else {
            for (int k = 0; k < n; ++k) dst[k] = src[k];
        }
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        if (n >= 8) {
            const __m128i run = broadcast128(b);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), run);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + n - 8), run);
        } else {
            for (int k = 0; k < n; ++k) dst[k] = b;
        }
    }
};

// The vector of W bytes.
template <int W>
struct ByteVector;
template <>
struct ByteVector<16> {
    using type = __m128i;
};
#ifdef __AVX2__
template <>
struct ByteVector<32> {
    using type = __m256i;
};
#endif
#ifdef __AVX512BW__
template <>
struct ByteVector<64> {
    using type = __m512i;
};
#endif

// Scans and writes of at least W bytes, a vector of W bytes at a time;
// shorter ones go to Narrower.
template <int W, class Narrower>
struct VectorScan {
    using V = typename ByteVector<W>::type;
    static constexpr uint64_t kAll = W == 64 ? ~uint64_t(0) : (uint64_t(1) << W) - 1;

    static int runLength(const Vek8u* p, Vek8u b, int max) {
        if (max < W) return Narrower::runLength(p, b, max);
        const V run = bytesOf<V>(b);
        for (int m = 0;; m += W) {
            if (m + W > max) m = max - W;  // the last vector overlaps bytes already equal
            if (const uint64_t differ = ~equalBytes(bytesAt<V>(p + m), run) & kAll) return m + firstBit(differ);
            if (m + W == max) return max;
        }
    }
    static int literalSpan(const Vek8u* p, int avail, int max) {
        // Places m < limit have a successor in the row; the place avail - 1
        // (if max reaches it) counts, so finding no equal pair gives max.
        const int limit = max < avail - 1 ? max : avail - 1;
        if (limit < W) return Narrower::literalSpan(p, avail, max);
        for (int k = 0;; k += W) {
            if (k + W > limit) k = limit - W;
            if (const uint64_t equal = equalBytes(bytesAt<V>(p + k), bytesAt<V>(p + k + 1))) return k + firstBit(equal);
            if (k + W == limit) return max;
        }
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        if (n < W) return Narrower::copy(dst, src, n);
        for (int k = 0; k + W < n; k += W) store(dst + k, bytesAt<V>(src + k));
        store(dst + n - W, bytesAt<V>(src + n - W));
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        if (n < W) return Narrower::fill(dst, b, n);
        const V run = bytesOf<V>(b);
        for (int k = 0; k + W < n; k += W) store(dst + k, run);
        store(dst + n - W, run);
    }
};

#ifdef __AVX512BW__
// Below 64 bytes: loads and stores masked to the bytes asked for (the
// masked-off bytes are not touched, so they cannot fault).
struct MaskedScan {
    static __mmask64 first(int n) { return n >= 64 ? ~__mmask64(0) : (__mmask64(1) << n) - 1; }
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        const __mmask64 in = first(max);
        const __mmask64 differ = _mm512_mask_cmpneq_epi8_mask(in, _mm512_maskz_loadu_epi8(in, p), broadcast512(b));
        return differ ? firstBit(differ) : max;
    }
    static int literalSpan(const Vek8u* p, int avail, int max) {
        const int limit = max < avail - 1 ? max : avail - 1;
        const __mmask64 in = first(limit);  // places 0..limit-1 and their successors
        const __mmask64 equal =
            _mm512_mask_cmpeq_epi8_mask(in, _mm512_maskz_loadu_epi8(in, p), _mm512_maskz_loadu_epi8(in, p + 1));
        return equal ? firstBit(equal) : max;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        const __mmask64 in = first(n);
        _mm512_mask_storeu_epi8(dst, in, _mm512_maskz_loadu_epi8(in, src));
    }
    static void fill(Vek8u* dst, Vek8u b, int n) { _mm512_mask_storeu_epi8(dst, first(n), broadcast512(b)); }
};
#endif

// ---- byte planes ----------------------------------------------------------------------

// Samples from the high and low bytes: 2 * sizeof(V) bytes out.
inline void joinVector(__m128i high, __m128i low, Vek16u* dst) {
    store(dst, _mm_unpacklo_epi8(low, high));
    store(dst + 8, _mm_unpackhi_epi8(low, high));
}
// The low bytes and the high bytes of the samples of a and b, in order.
inline void splitVectors(__m128i a, __m128i b, __m128i& high, __m128i& low) {
    const __m128i mask = _mm_set1_epi16(0xFF);
    low = _mm_packus_epi16(_mm_and_si128(a, mask), _mm_and_si128(b, mask));
    high = _mm_packus_epi16(_mm_srli_epi16(a, 8), _mm_srli_epi16(b, 8));
}
#ifdef __AVX2__
inline void joinVector(__m256i high, __m256i low, Vek16u* dst) {
    // 64-bit pieces 0 2 1 3: each lane's unpacks then take consecutive samples.
    high = _mm256_permute4x64_epi64(high, 0xD8);
    low = _mm256_permute4x64_epi64(low, 0xD8);
    store(dst, _mm256_unpacklo_epi8(low, high));
    store(dst + 16, _mm256_unpackhi_epi8(low, high));
}
inline void splitVectors(__m256i a, __m256i b, __m256i& high, __m256i& low) {
    const __m256i mask = _mm256_set1_epi16(0xFF);
    // The packs give 64-bit pieces a0 b0 a1 b1: reorder to a0 a1 b0 b1.
    low = _mm256_permute4x64_epi64(_mm256_packus_epi16(_mm256_and_si256(a, mask), _mm256_and_si256(b, mask)), 0xD8);
    high = _mm256_permute4x64_epi64(_mm256_packus_epi16(_mm256_srli_epi16(a, 8), _mm256_srli_epi16(b, 8)), 0xD8);
}
#endif
#ifdef __AVX512BW__
// (The masked permutation stands for the plain one, whose undefined operand
// GCC 12 warns about.)
inline void joinVector(__m512i high, __m512i low, Vek16u* dst) {
    const __m512i order = _mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7);
    high = _mm512_maskz_permutexvar_epi64(0xFF, order, high);
    low = _mm512_maskz_permutexvar_epi64(0xFF, order, low);
    store(dst, _mm512_unpacklo_epi8(low, high));
    store(dst + 32, _mm512_unpackhi_epi8(low, high));
}
inline void splitVectors(__m512i a, __m512i b, __m512i& high, __m512i& low) {
    const __m512i mask = _mm512_set1_epi16(0xFF), order = _mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7);
    low = _mm512_maskz_permutexvar_epi64(0xFF, order,
                                         _mm512_packus_epi16(_mm512_and_si512(a, mask), _mm512_and_si512(b, mask)));
    high = _mm512_maskz_permutexvar_epi64(0xFF, order,
                                          _mm512_packus_epi16(_mm512_srli_epi16(a, 8), _mm512_srli_epi16(b, 8)));
}
#endif

template <class V>
void joinPlanesVector(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    forEachBlock<sizeof(V)>(
        n, [](Vek16u* d, const Vek8u* h, const Vek8u* l) { joinVector(bytesAt<V>(h), bytesAt<V>(l), d); }, dst, high,
        low);
}

template <class V>
void splitPlanesVector(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    constexpr size_t N = sizeof(V);  // samples a block
    const auto block = [](const Vek16u* s, Vek8u* h, Vek8u* l) {
        V hi, lo;
        splitVectors(bytesAt<V>(reinterpret_cast<const Vek8u*>(s)),
                     bytesAt<V>(reinterpret_cast<const Vek8u*>(s + N / 2)), hi, lo);
        store(h, hi);
        store(l, lo);
    };
    size_t i = 0;
    for (; i + N <= n; i += N) block(src + i, high + i, low + i);
    if (i < n) {  // the last samples through the stack, as forEachBlock does
        Vek16u in[N] = {};
        Vek8u h[N], l[N];
        memcpy(in, src + i, (n - i) * sizeof(Vek16u));
        block(in, h, l);
        memcpy(high + i, h, n - i);
        memcpy(low + i, l, n - i);
    }
}

}  // namespace

#endif
