// The Block policy of the JPEG Huffman coders (huffman_encode.h,
// huffman_decode.h) for the vector levels, written once: the zig-zag
// reorder, the mask of coefficients that are nonzero after the point
// transform, at AVX2 and AVX-512 the size categories and value bits of a
// whole block, and the decoders' block cleared and copied by vectors.
//   SSE2:    reorder by scalar gathers; the mask from 8 compares and 4
//            movemasks (abs as max(v, -v), so -32768 stays 0x8000).
//   SSSE3:   each 8 zig-zag outputs gathered from the rows they come from
//            with pshufb (36 shuffles for the block), abs in one step.
//   AVX2:    the SSSE3 reorder; the mask from 4 compares of 256 bits.
//   AVX-512: the reorder as two word permutes over the whole block
//            (vpermt2w), the mask from two test-into-mask instructions.
// Every level gives the bytes of the plain level.
//
// Included inside a level's namespace after <immintrin.h>, <string.h>,
// core/simd_vocabulary.h and huffman_state.h; internal linkage.
#ifndef VEK_JPEG_HUFFMAN_SIMD_H
#define VEK_JPEG_HUFFMAN_SIMD_H

namespace {

#if defined(__SSSE3__) && !defined(__AVX512BW__)
// pshufb controls: kRowShuffle[v][r] moves the words of natural row r that
// belong to zig-zag positions 8v..8v+7 into place, zero elsewhere.
struct RowShuffles {
    alignas(16) Vek8u control[8][8][16];
    bool used[8][8];
};
constexpr RowShuffles makeRowShuffles() {
    RowShuffles t{};
    for (int v = 0; v < 8; ++v)
        for (int r = 0; r < 8; ++r) {
            t.used[v][r] = false;
            for (int j = 0; j < 8; ++j) {
                const int natural = vek::jpeg::kZigzagToNatural[8 * v + j];
                const bool here = natural / 8 == r;
                t.control[v][r][2 * j] = here ? static_cast<Vek8u>(2 * (natural % 8)) : 0x80;
                t.control[v][r][2 * j + 1] = here ? static_cast<Vek8u>(2 * (natural % 8) + 1) : 0x80;
                t.used[v][r] = t.used[v][r] || here;
            }
        }
    return t;
}
constexpr RowShuffles kRowShuffles = makeRowShuffles();
#endif

struct VectorBlock {
#if defined(__AVX2__)
    // sizes[k]: the size category of zz[k] (bits of its magnitude, 16 for
    // -32768), from the exponent of the magnitude converted to float (exact
    // below 2^24; 0 gives 0); bits[k]: zz[k] - 1 where negative, whose low
    // `size` bits are the value bits.
    static constexpr bool kSizesByVector = true;
    static void sizesAndBits(const Vek16s* zz, Vek32s* sizes, Vek16s* bits) {
#    if defined(__AVX512BW__)
        for (int i = 0; i < 64; i += 32) {
            const __m512i v = load512i(zz + i);
            store(bits + i, _mm512_add_epi16(v, _mm512_srai_epi16(v, 15)));
            const __m512i m = _mm512_abs_epi16(v);
            for (int h = 0; h < 2; ++h) {
                const __m512i wide =
                    _mm512_cvtepu16_epi32(h ? _mm512_extracti64x4_epi64(m, 1) : _mm512_castsi512_si256(m));
                const __m512i exponent = _mm512_srli_epi32(_mm512_castps_si512(_mm512_cvtepi32_ps(wide)), 23);
                store(sizes + i + 16 * h,
                      _mm512_max_epi32(_mm512_sub_epi32(exponent, _mm512_set1_epi32(126)), _mm512_setzero_si512()));
            }
        }
#    else
        for (int i = 0; i < 64; i += 16) {
            const __m256i v = load256i(zz + i);
            store(bits + i, _mm256_add_epi16(v, _mm256_srai_epi16(v, 15)));
            const __m256i m = _mm256_abs_epi16(v);
            for (int h = 0; h < 2; ++h) {
                const __m256i wide =
                    _mm256_cvtepu16_epi32(h ? _mm256_extracti128_si256(m, 1) : _mm256_castsi256_si128(m));
                const __m256i exponent = _mm256_srli_epi32(_mm256_castps_si256(_mm256_cvtepi32_ps(wide)), 23);
                store(sizes + i + 8 * h,
                      _mm256_max_epi32(_mm256_sub_epi32(exponent, _mm256_set1_epi32(126)), _mm256_setzero_si256()));
            }
        }
#    endif
    }
#else
    static constexpr bool kSizesByVector = false;
    static void sizesAndBits(const Vek16s*, Vek32s*, Vek16s*) {}
#endif

    static void toZigzag(const Vek16s* natural, Vek16s* zz) {
#if defined(__AVX512BW__)
        const __m512i lo = load512i(natural), hi = load512i(natural + 32);
        alignas(64) static constexpr Vek16u kFirst[32] = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32,
                                                          25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
                                                          41, 34, 27, 20, 13, 6,  7,  14, 21, 28};
        alignas(64) static constexpr Vek16u kSecond[32] = {35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15,
                                                           23, 30, 37, 44, 51, 58, 59, 52, 45, 38, 31,
                                                           39, 46, 53, 60, 61, 54, 47, 55, 62, 63};
        store(zz, _mm512_permutex2var_epi16(lo, loadAligned512i(kFirst), hi));
        store(zz + 32, _mm512_permutex2var_epi16(lo, loadAligned512i(kSecond), hi));
#elif defined(__SSSE3__)
        __m128i rows[8];
        for (int r = 0; r < 8; ++r) rows[r] = load128i(natural + 8 * r);
        for (int v = 0; v < 8; ++v) {
            __m128i out = _mm_setzero_si128();
            for (int r = 0; r < 8; ++r)
                if (kRowShuffles.used[v][r])
                    out = _mm_or_si128(out, _mm_shuffle_epi8(rows[r], loadAligned128i(kRowShuffles.control[v][r])));
            store(zz + 8 * v, out);
        }
#else
        for (int k = 0; k < 64; ++k) zz[k] = natural[vek::jpeg::kZigzagToNatural[k]];
#endif
    }

    // The decoders' block: cleared or copied whole, by vectors.
    static void clear(Vek16s* block) {
#if defined(__AVX512BW__)
        store(block, _mm512_setzero_si512());
        store(block + 32, _mm512_setzero_si512());
#elif defined(__AVX2__)
        for (int i = 0; i < 64; i += 16) store(block + i, _mm256_setzero_si256());
#else
        for (int i = 0; i < 64; i += 8) store(block + i, _mm_setzero_si128());
#endif
    }
    static void copy(Vek16s* dst, const Vek16s* src) {
#if defined(__AVX512BW__)
        store(dst, load512i(src));
        store(dst + 32, load512i(src + 32));
#elif defined(__AVX2__)
        for (int i = 0; i < 64; i += 16) store(dst + i, load256i(src + i));
#else
        for (int i = 0; i < 64; i += 8) store(dst + i, load128i(src + i));
#endif
    }

    static Vek64u bandMask(const Vek16s* zz, int al) {
#if defined(__AVX512BW__)
        const __m128i shift = _mm_cvtsi32_si128(al);
        const __m512i a = _mm512_srl_epi16(_mm512_abs_epi16(load512i(zz)), shift);
        const __m512i b = _mm512_srl_epi16(_mm512_abs_epi16(load512i(zz + 32)), shift);
        return Vek64u(_mm512_test_epi16_mask(a, a)) | Vek64u(_mm512_test_epi16_mask(b, b)) << 32;
#elif defined(__AVX2__)
        const __m128i shift = _mm_cvtsi32_si128(al);
        Vek64u mask = 0;
        for (int i = 0; i < 4; ++i) {
            const __m256i m = _mm256_srl_epi16(_mm256_abs_epi16(load256i(zz + 16 * i)), shift);
            const __m256i zero = _mm256_cmpeq_epi16(m, _mm256_setzero_si256());
            // packs keeps each 128-bit lane: words 0-7 of both inputs, then 8-15.
            const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packs_epi16(zero, zero), 0xD8);
            mask |= Vek64u(static_cast<Vek16u>(~_mm256_movemask_epi8(bytes))) << (16 * i);
        }
        return mask;
#else
        const __m128i shift = _mm_cvtsi32_si128(al);
        Vek64u mask = 0;
        for (int i = 0; i < 4; ++i) {
            __m128i a = load128i(zz + 16 * i), b = load128i(zz + 16 * i + 8);
#    if defined(__SSSE3__)
            a = _mm_abs_epi16(a);
            b = _mm_abs_epi16(b);
#    else
            a = _mm_max_epi16(a, _mm_sub_epi16(_mm_setzero_si128(), a));
            b = _mm_max_epi16(b, _mm_sub_epi16(_mm_setzero_si128(), b));
#    endif
            a = _mm_cmpeq_epi16(_mm_srl_epi16(a, shift), _mm_setzero_si128());
            b = _mm_cmpeq_epi16(_mm_srl_epi16(b, shift), _mm_setzero_si128());
            mask |= Vek64u(static_cast<Vek16u>(~_mm_movemask_epi8(_mm_packs_epi16(a, b)))) << (16 * i);
        }
        return mask;
#endif
    }
};

}  // namespace

#endif
