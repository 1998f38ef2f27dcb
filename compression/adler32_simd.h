// Adler-32 with SSE2 or SSSE3, for the fast levels.
//
// The input is taken in 32-byte chunks.  Per chunk, psadbw adds the bytes
// into sum A, and sum B gains 32 times the A before the chunk (kept as the
// running total of A, shifted left by 5 at the end) plus the bytes weighted
// 32, 31, ..., 1 by their place in the chunk.  SSSE3 weights each chunk at
// once (pmaddubsw, then pmaddwd by ones); SSE2 keeps per-place byte totals
// in 16-bit lanes and weights them with pmaddwd every 128 chunks, before
// they could pass 32767.  Both reduce modulo 65521 once per 5536 bytes, a
// whole number of chunks below the 5552 that 32-bit sums allow, so every
// result equals the plain level's.
//
// Included inside a level's namespace after <immintrin.h>; everything has
// internal linkage.
#ifndef VEK_COMPRESSION_ADLER32_SIMD_H
#define VEK_COMPRESSION_ADLER32_SIMD_H

#include "core/simd_vocabulary.h"

namespace {

constexpr uint32_t kAdlerBase = 65521;
constexpr size_t kAdlerChunk = 32;
constexpr size_t kAdlerBlock = 173 * kAdlerChunk;  // 5536 <= 5552

inline uint32_t horizontalSum(__m128i v) {
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, _MM_SHUFFLE(1, 0, 3, 2)));
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, _MM_SHUFFLE(2, 3, 0, 1)));
    return static_cast<uint32_t>(_mm_cvtsi128_si32(v));
}

// Adds `chunks` 32-byte chunks at p to the unreduced sums a and b.
inline void adlerChunks(const Vek8u* p, size_t chunks, uint32_t& a, uint32_t& b) {
    const __m128i zero = _mm_setzero_si128();
    __m128i sumA = zero, sumAPrior = zero, weighted = zero;
    b += static_cast<uint32_t>(chunks * kAdlerChunk) * a;
#ifdef __SSSE3__
    const __m128i weightsLo = _mm_setr_epi8(32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17);
    const __m128i weightsHi = _mm_setr_epi8(16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
    const __m128i ones = _mm_set1_epi16(1);
    for (; chunks; --chunks, p += kAdlerChunk) {
        const __m128i lo = load128i(p);
        const __m128i hi = load128i(p + 16);
        sumAPrior = _mm_add_epi32(sumAPrior, sumA);
        sumA = _mm_add_epi32(sumA, _mm_add_epi32(_mm_sad_epu8(lo, zero), _mm_sad_epu8(hi, zero)));
        const __m128i pairs = _mm_add_epi16(_mm_maddubs_epi16(lo, weightsLo), _mm_maddubs_epi16(hi, weightsHi));
        weighted = _mm_add_epi32(weighted, _mm_madd_epi16(pairs, ones));
    }
#else
    const __m128i weights0 = _mm_setr_epi16(32, 31, 30, 29, 28, 27, 26, 25);
    const __m128i weights1 = _mm_setr_epi16(24, 23, 22, 21, 20, 19, 18, 17);
    const __m128i weights2 = _mm_setr_epi16(16, 15, 14, 13, 12, 11, 10, 9);
    const __m128i weights3 = _mm_setr_epi16(8, 7, 6, 5, 4, 3, 2, 1);
    while (chunks) {
        const size_t run = chunks < 128 ? chunks : 128;  // 128 * 255 fits a signed 16-bit lane
        chunks -= run;
        __m128i place0 = zero, place1 = zero, place2 = zero, place3 = zero;
        for (size_t i = 0; i < run; ++i, p += kAdlerChunk) {
            const __m128i lo = load128i(p);
            const __m128i hi = load128i(p + 16);
            sumAPrior = _mm_add_epi32(sumAPrior, sumA);
            sumA = _mm_add_epi32(sumA, _mm_add_epi32(_mm_sad_epu8(lo, zero), _mm_sad_epu8(hi, zero)));
            place0 = _mm_add_epi16(place0, _mm_unpacklo_epi8(lo, zero));
            place1 = _mm_add_epi16(place1, _mm_unpackhi_epi8(lo, zero));
            place2 = _mm_add_epi16(place2, _mm_unpacklo_epi8(hi, zero));
            place3 = _mm_add_epi16(place3, _mm_unpackhi_epi8(hi, zero));
        }
        weighted =
            _mm_add_epi32(weighted, _mm_add_epi32(_mm_madd_epi16(place0, weights0), _mm_madd_epi16(place1, weights1)));
        weighted =
            _mm_add_epi32(weighted, _mm_add_epi32(_mm_madd_epi16(place2, weights2), _mm_madd_epi16(place3, weights3)));
    }
#endif
    a += horizontalSum(sumA);
    b += horizontalSum(_mm_add_epi32(_mm_slli_epi32(sumAPrior, 5), weighted));
}

// The Adler-32 value after the bytes p[0..len), from `value` (B << 16 | A).
inline uint32_t adlerUpdate(uint32_t value, const Vek8u* p, size_t len) {
    uint32_t a = value & 0xFFFF, b = value >> 16;
    while (len) {
        size_t block = len < kAdlerBlock ? len : kAdlerBlock;
        len -= block;
        adlerChunks(p, block / kAdlerChunk, a, b);
        p += block & ~(kAdlerChunk - 1);
        for (block &= kAdlerChunk - 1; block; --block) {
            a += *p++;
            b += a;
        }
        a %= kAdlerBase;
        b %= kAdlerBase;
    }
    return b << 16 | a;
}

}  // namespace

#endif
