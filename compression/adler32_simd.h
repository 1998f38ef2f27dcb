// Adler-32 with SSE2, SSSE3, AVX2 or AVX-512, for the fast levels.
//
// The input is taken in chunks of 32 bytes (64 from AVX2 on).  Per chunk,
// psadbw adds the bytes into sum A, and sum B gains the chunk's size times
// the A before the chunk (kept as the running total of A, multiplied at
// the end) plus the bytes weighted 32, 31, ..., 1 (64, ..., 1) by their
// place in the chunk.  SSSE3 and above weight each chunk at once
// (pmaddubsw, then pmaddwd by ones: a pair of weighted bytes stays below
// 255 * (64 + 63) < 32768); SSE2 keeps per-place byte totals in 16-bit
// lanes and weights them with pmaddwd every 128 chunks, before they could
// pass 32767.  All reduce modulo 65521 once per block of whole chunks
// below the 5552 bytes that 32-bit sums allow, so every result equals the
// plain level's.
//
// Included inside a level's namespace after <immintrin.h>; everything has
// internal linkage.
#ifndef VEK_COMPRESSION_ADLER32_SIMD_H
#define VEK_COMPRESSION_ADLER32_SIMD_H

#include "core/simd_vocabulary.h"

namespace {

constexpr uint32_t kAdlerBase = 65521;
#ifdef __AVX2__
constexpr size_t kAdlerChunk = 64;
constexpr size_t kAdlerBlock = 86 * kAdlerChunk;  // 5504 <= 5552
#else
constexpr size_t kAdlerChunk = 32;
constexpr size_t kAdlerBlock = 173 * kAdlerChunk;  // 5536 <= 5552
#endif

inline uint32_t horizontalSum(__m128i v) {
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, _MM_SHUFFLE(1, 0, 3, 2)));
    v = _mm_add_epi32(v, _mm_shuffle_epi32(v, _MM_SHUFFLE(2, 3, 0, 1)));
    return static_cast<uint32_t>(_mm_cvtsi128_si32(v));
}

#ifdef __AVX2__
inline uint32_t horizontalSum(__m256i v) {
    return horizontalSum(_mm_add_epi32(_mm256_castsi256_si128(v), _mm256_extracti128_si256(v, 1)));
}
#endif

#if defined(__AVX512BW__)
// Through memory: GCC 12 warns of an uninitialised register inside the
// intrinsics that take a 512-bit vector apart.
inline uint32_t horizontalSum(__m512i v) {
    alignas(64) uint32_t lanes[16];
    storeAligned(lanes, v);
    uint32_t sum = 0;
    for (uint32_t lane : lanes) sum += lane;
    return sum;
}

// Adds `chunks` 64-byte chunks at p to the unreduced sums a and b.
inline void adlerChunks(const Vek8u* p, size_t chunks, uint32_t& a, uint32_t& b) {
    const __m512i zero = _mm512_setzero_si512();
    const __m512i weights =
        _mm512_set_epi8(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26,
                        27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50,
                        51, 52, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64);
    const __m512i ones = _mm512_set1_epi16(1);
    __m512i sumA = zero, sumAPrior = zero, weighted = zero;
    b += static_cast<uint32_t>(chunks * kAdlerChunk) * a;
    // Two chunks a step: the A before the second is the A before the first
    // plus the first chunk's bytes.
    for (; chunks >= 2; chunks -= 2, p += 2 * kAdlerChunk) {
        const __m512i v0 = load512i(p), v1 = load512i(p + kAdlerChunk);
        const __m512i sum0 = _mm512_sad_epu8(v0, zero);
        sumAPrior = _mm512_add_epi32(sumAPrior, _mm512_add_epi32(_mm512_add_epi32(sumA, sumA), sum0));
        sumA = _mm512_add_epi32(sumA, _mm512_add_epi32(sum0, _mm512_sad_epu8(v1, zero)));
        weighted =
            _mm512_add_epi32(weighted, _mm512_add_epi32(_mm512_madd_epi16(_mm512_maddubs_epi16(v0, weights), ones),
                                                        _mm512_madd_epi16(_mm512_maddubs_epi16(v1, weights), ones)));
    }
    if (chunks) {
        const __m512i v = load512i(p);
        sumAPrior = _mm512_add_epi32(sumAPrior, sumA);
        sumA = _mm512_add_epi32(sumA, _mm512_sad_epu8(v, zero));
        weighted = _mm512_add_epi32(weighted, _mm512_madd_epi16(_mm512_maddubs_epi16(v, weights), ones));
    }
    a += horizontalSum(sumA);
    b += horizontalSum(_mm512_add_epi32(_mm512_maskz_slli_epi32(0xFFFF, sumAPrior, 6), weighted));
}
#elif defined(__AVX2__)
// Adds `chunks` 64-byte chunks at p to the unreduced sums a and b.
inline void adlerChunks(const Vek8u* p, size_t chunks, uint32_t& a, uint32_t& b) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i weightsLo = _mm256_setr_epi8(64, 63, 62, 61, 60, 59, 58, 57, 56, 55, 54, 53, 52, 51, 50, 49, 48, 47,
                                               46, 45, 44, 43, 42, 41, 40, 39, 38, 37, 36, 35, 34, 33);
    const __m256i weightsHi = _mm256_setr_epi8(32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15,
                                               14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
    const __m256i ones = _mm256_set1_epi16(1);
    __m256i sumA = zero, sumAPrior = zero, weighted = zero;
    b += static_cast<uint32_t>(chunks * kAdlerChunk) * a;
    for (; chunks; --chunks, p += kAdlerChunk) {
        const __m256i lo = load256i(p);
        const __m256i hi = load256i(p + 32);
        sumAPrior = _mm256_add_epi32(sumAPrior, sumA);
        sumA = _mm256_add_epi32(sumA, _mm256_add_epi32(_mm256_sad_epu8(lo, zero), _mm256_sad_epu8(hi, zero)));
        // Each half to 32 bits on its own: the two together could pass 32767.
        weighted =
            _mm256_add_epi32(weighted, _mm256_add_epi32(_mm256_madd_epi16(_mm256_maddubs_epi16(lo, weightsLo), ones),
                                                        _mm256_madd_epi16(_mm256_maddubs_epi16(hi, weightsHi), ones)));
    }
    a += horizontalSum(sumA);
    b += horizontalSum(_mm256_add_epi32(_mm256_slli_epi32(sumAPrior, 6), weighted));
}
#else
// Adds `chunks` 32-byte chunks at p to the unreduced sums a and b.
inline void adlerChunks(const Vek8u* p, size_t chunks, uint32_t& a, uint32_t& b) {
    const __m128i zero = _mm_setzero_si128();
    __m128i sumA = zero, sumAPrior = zero, weighted = zero;
    b += static_cast<uint32_t>(chunks * kAdlerChunk) * a;
#    ifdef __SSSE3__
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
#    else
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
#    endif
    a += horizontalSum(sumA);
    b += horizontalSum(_mm_add_epi32(_mm_slli_epi32(sumAPrior, 5), weighted));
}
#endif

// The Adler-32 value after the bytes p[0..len), from `value` (B << 16 | A).
inline uint32_t adlerUpdate(uint32_t value, const Vek8u* p, size_t len) {
    uint32_t a = value & 0xFFFF, b = value >> 16;
#ifdef __AVX512BW__
    // A 64-byte load that straddles two cache lines costs more than the
    // bytes up to a line boundary taken one at a time.
    if (len >= 4 * kAdlerChunk) {
        for (size_t head = (0 - reinterpret_cast<uintptr_t>(p)) & (kAdlerChunk - 1); head; --head, --len) {
            a += *p++;
            b += a;
        }
        a %= kAdlerBase;
        b %= kAdlerBase;
    }
#endif
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
