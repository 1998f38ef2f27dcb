// The TIFF byte-plane kernels for the vector levels, written once over the
// vector type: __m128i (SSE2), __m256i (AVX2) or __m512i (AVX-512 BW).
//
// Joining interleaves the two planes' bytes (unpacks); splitting packs the
// low and the high bytes of the samples.  The 256- and 512-bit unpacks and
// packs work within 128-bit lanes, so a permutation of 64-bit pieces puts
// the samples back in order.
//
// Included inside a level's namespace after <immintrin.h> and <string.h>;
// internal linkage.
#ifndef VEK_JPEG_TIFF_SIMD_H
#define VEK_JPEG_TIFF_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

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

// A vector's worth from any address.
template <class V>
inline V loadPlane(const void* p) {
    if constexpr (sizeof(V) == 16) return load128i(p);
#ifdef __AVX2__
    if constexpr (sizeof(V) == 32) return load256i(p);
#endif
#ifdef __AVX512BW__
    if constexpr (sizeof(V) == 64) return load512i(p);
#endif
}

template <class V>
void joinPlanesVector(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    forEachBlock<sizeof(V)>(
        n, [](Vek16u* d, const Vek8u* h, const Vek8u* l) { joinVector(loadPlane<V>(h), loadPlane<V>(l), d); }, dst,
        high, low);
}

template <class V>
void splitPlanesVector(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    constexpr size_t N = sizeof(V);  // samples a block
    const auto block = [](const Vek16u* s, Vek8u* h, Vek8u* l) {
        V hi, lo;
        splitVectors(loadPlane<V>(s), loadPlane<V>(s + N / 2), hi, lo);
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
