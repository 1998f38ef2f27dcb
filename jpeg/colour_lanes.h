// The lane words of the JPEG colour family's vector kernels: 16- and 32-bit
// integer arithmetic overloaded on the vector type (__m128i, __m256i,
// __m512i), so each kernel is written once and every level instantiates it
// with the widest vector it has.
//
// Kernels keep pixels in 16-bit lanes in their natural order: widenLoad
// zero-extends 8-bit samples in order and narrowStore packs them back in
// order.  The pairing words (unpack, madd, pack) work within 128-bit lanes,
// and a kernel always packs what it unpacked from the same vectors, so the
// order survives them at every width.
//
// Included inside a level's namespace after <immintrin.h> and
// core/simd_vocabulary.h; internal linkage.
#ifndef VEK_JPEG_COLOUR_LANES_H
#define VEK_JPEG_COLOUR_LANES_H

namespace {

template <class V>
constexpr int kLanes16 = int(sizeof(V) / 2);

// ---- 128 bits ------------------------------------------------------------------
inline __m128i add16(__m128i a, __m128i b) { return _mm_add_epi16(a, b); }
inline __m128i adds16(__m128i a, __m128i b) { return _mm_adds_epi16(a, b); }
inline __m128i sub16(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
inline __m128i mullo16(__m128i a, __m128i b) { return _mm_mullo_epi16(a, b); }
inline __m128i mulhi16(__m128i a, __m128i b) { return _mm_mulhi_epi16(a, b); }
inline __m128i max16(__m128i a, __m128i b) { return _mm_max_epi16(a, b); }
inline __m128i min16(__m128i a, __m128i b) { return _mm_min_epi16(a, b); }
inline __m128i andV(__m128i a, __m128i b) { return _mm_and_si128(a, b); }
inline __m128i orV(__m128i a, __m128i b) { return _mm_or_si128(a, b); }
inline __m128i unpacklo16(__m128i a, __m128i b) { return _mm_unpacklo_epi16(a, b); }
inline __m128i unpackhi16(__m128i a, __m128i b) { return _mm_unpackhi_epi16(a, b); }
inline __m128i madd(__m128i a, __m128i b) { return _mm_madd_epi16(a, b); }
inline __m128i add32(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
inline __m128i packs32(__m128i a, __m128i b) { return _mm_packs_epi32(a, b); }
inline __m128i packus16(__m128i a, __m128i b) { return _mm_packus_epi16(a, b); }
#ifdef __SSSE3__
inline __m128i shuffleBytes(__m128i v, const Vek8s* control) { return _mm_shuffle_epi8(v, load128i(control)); }
#endif
template <int N>
inline __m128i slli16(__m128i a) {
    return _mm_slli_epi16(a, N);
}
template <int N>
inline __m128i srli16(__m128i a) {
    return _mm_srli_epi16(a, N);
}
template <int N>
inline __m128i slli32(__m128i a) {
    return _mm_slli_epi32(a, N);
}
template <int N>
inline __m128i srli32(__m128i a) {
    return _mm_srli_epi32(a, N);
}
template <int N>
inline __m128i srai32(__m128i a) {
    return _mm_srai_epi32(a, N);
}

// ---- 256 bits ------------------------------------------------------------------
#ifdef __AVX2__
inline __m256i add16(__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }
inline __m256i adds16(__m256i a, __m256i b) { return _mm256_adds_epi16(a, b); }
inline __m256i sub16(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }
inline __m256i mullo16(__m256i a, __m256i b) { return _mm256_mullo_epi16(a, b); }
inline __m256i mulhi16(__m256i a, __m256i b) { return _mm256_mulhi_epi16(a, b); }
inline __m256i max16(__m256i a, __m256i b) { return _mm256_max_epi16(a, b); }
inline __m256i min16(__m256i a, __m256i b) { return _mm256_min_epi16(a, b); }
inline __m256i andV(__m256i a, __m256i b) { return _mm256_and_si256(a, b); }
inline __m256i orV(__m256i a, __m256i b) { return _mm256_or_si256(a, b); }
inline __m256i unpacklo16(__m256i a, __m256i b) { return _mm256_unpacklo_epi16(a, b); }
inline __m256i unpackhi16(__m256i a, __m256i b) { return _mm256_unpackhi_epi16(a, b); }
inline __m256i madd(__m256i a, __m256i b) { return _mm256_madd_epi16(a, b); }
inline __m256i add32(__m256i a, __m256i b) { return _mm256_add_epi32(a, b); }
inline __m256i packs32(__m256i a, __m256i b) { return _mm256_packs_epi32(a, b); }
inline __m256i packus16(__m256i a, __m256i b) { return _mm256_packus_epi16(a, b); }
// pshufb in each 128-bit lane by the same 16 control bytes.
inline __m256i shuffleBytes(__m256i v, const Vek8s* control) {
    return _mm256_shuffle_epi8(v, _mm256_broadcastsi128_si256(load128i(control)));
}
// The two 128-bit lanes swapped; the low lanes of a and b.
inline __m256i swapLanePairs(__m256i v) { return _mm256_permute2x128_si256(v, v, 0x01); }
inline __m256i evenLanes(__m256i a, __m256i b) { return _mm256_permute2x128_si256(a, b, 0x20); }
template <int N>
inline __m256i slli16(__m256i a) {
    return _mm256_slli_epi16(a, N);
}
template <int N>
inline __m256i srli16(__m256i a) {
    return _mm256_srli_epi16(a, N);
}
template <int N>
inline __m256i slli32(__m256i a) {
    return _mm256_slli_epi32(a, N);
}
template <int N>
inline __m256i srli32(__m256i a) {
    return _mm256_srli_epi32(a, N);
}
template <int N>
inline __m256i srai32(__m256i a) {
    return _mm256_srai_epi32(a, N);
}
#endif

// ---- 512 bits ------------------------------------------------------------------
// The zero-masking forms with every lane selected: GCC 12's plain forms
// merge into an "undefined" vector that its uninitialised-use warning
// trips over.
#ifdef __AVX512BW__
inline __m512i add16(__m512i a, __m512i b) { return _mm512_add_epi16(a, b); }
inline __m512i adds16(__m512i a, __m512i b) { return _mm512_adds_epi16(a, b); }
inline __m512i sub16(__m512i a, __m512i b) { return _mm512_sub_epi16(a, b); }
inline __m512i mullo16(__m512i a, __m512i b) { return _mm512_mullo_epi16(a, b); }
inline __m512i mulhi16(__m512i a, __m512i b) { return _mm512_mulhi_epi16(a, b); }
inline __m512i max16(__m512i a, __m512i b) { return _mm512_max_epi16(a, b); }
inline __m512i min16(__m512i a, __m512i b) { return _mm512_min_epi16(a, b); }
inline __m512i andV(__m512i a, __m512i b) { return _mm512_and_si512(a, b); }
inline __m512i orV(__m512i a, __m512i b) { return _mm512_or_si512(a, b); }
inline __m512i unpacklo16(__m512i a, __m512i b) { return _mm512_unpacklo_epi16(a, b); }
inline __m512i unpackhi16(__m512i a, __m512i b) { return _mm512_unpackhi_epi16(a, b); }
inline __m512i madd(__m512i a, __m512i b) { return _mm512_madd_epi16(a, b); }
inline __m512i add32(__m512i a, __m512i b) { return _mm512_add_epi32(a, b); }
inline __m512i packs32(__m512i a, __m512i b) { return _mm512_packs_epi32(a, b); }
inline __m512i packus16(__m512i a, __m512i b) { return _mm512_packus_epi16(a, b); }
inline __m512i shuffleBytes(__m512i v, const Vek8s* control) {
    return _mm512_shuffle_epi8(v, _mm512_maskz_broadcast_i32x4(__mmask16(-1), load128i(control)));
}
// 128-bit lanes 0 <-> 1 and 2 <-> 3; lanes 0 and 2 of a, then of b.
inline __m512i swapLanePairs(__m512i v) {
    return _mm512_maskz_shuffle_i32x4(__mmask16(-1), v, v, _MM_SHUFFLE(2, 3, 0, 1));
}
inline __m512i evenLanes(__m512i a, __m512i b) {
    return _mm512_maskz_shuffle_i32x4(__mmask16(-1), a, b, _MM_SHUFFLE(2, 0, 2, 0));
}
template <int N>
inline __m512i slli16(__m512i a) {
    return _mm512_maskz_slli_epi16(__mmask32(-1), a, N);
}
template <int N>
inline __m512i srli16(__m512i a) {
    return _mm512_maskz_srli_epi16(__mmask32(-1), a, N);
}
template <int N>
inline __m512i slli32(__m512i a) {
    return _mm512_maskz_slli_epi32(__mmask16(-1), a, N);
}
template <int N>
inline __m512i srli32(__m512i a) {
    return _mm512_maskz_srli_epi32(__mmask16(-1), a, N);
}
template <int N>
inline __m512i srai32(__m512i a) {
    return _mm512_maskz_srai_epi32(__mmask16(-1), a, N);
}
#endif

// ---- constants, loads and stores by vector type ---------------------------------------
template <class V>
inline V set16(int x) {
    if constexpr (sizeof(V) == 16) return broadcast128(Vek16s(x));
#ifdef __AVX2__
    else if constexpr (sizeof(V) == 32)
        return broadcast256(Vek16s(x));
#endif
#ifdef __AVX512BW__
    else
        return broadcast512(Vek16s(x));
#endif
}
template <class V>
inline V set32(int32_t x) {
    if constexpr (sizeof(V) == 16) return broadcast128(Vek32s(x));
#ifdef __AVX2__
    else if constexpr (sizeof(V) == 32)
        return broadcast256(Vek32s(x));
#endif
#ifdef __AVX512BW__
    else
        return broadcast512(Vek32s(x));
#endif
}
// The 16-bit pair (even lane, odd lane) in every 32-bit lane: madd's factors.
template <class V>
inline V pair16(int even, int odd) {
    return set32<V>(int32_t((uint32_t(uint16_t(odd)) << 16) | uint16_t(even)));
}

template <class V>
inline V loadV(const void* p) {
    if constexpr (sizeof(V) == 16) return load128i(p);
#ifdef __AVX2__
    else if constexpr (sizeof(V) == 32)
        return load256i(p);
#endif
#ifdef __AVX512BW__
    else
        return load512i(p);
#endif
}

// kLanes16<V> bytes, zero-extended to 16-bit lanes in order.
template <class V>
inline V widenLoad(const Vek8u* p) {
    if constexpr (sizeof(V) == 16)
        return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), _mm_setzero_si128());
#ifdef __AVX2__
    else if constexpr (sizeof(V) == 32)
        return _mm256_cvtepu8_epi16(load128i(p));
#endif
#ifdef __AVX512BW__
    else
        return _mm512_cvtepu8_epi16(load256i(p));
#endif
}

// 16-bit lanes holding 0..255 stored as kLanes16<V> bytes, in order.
inline void narrowStore(Vek8u* p, __m128i v) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_packus_epi16(v, v));
}
#ifdef __AVX2__
inline void narrowStore(Vek8u* p, __m256i v) {
    store(p, _mm256_castsi256_si128(_mm256_permute4x64_epi64(_mm256_packus_epi16(v, v), 0x08)));
}
#endif
#ifdef __AVX512BW__
inline void narrowStore(Vek8u* p, __m512i v) { store(p, _mm512_maskz_cvtepi16_epi8(__mmask32(-1), v)); }
#endif

// A vector put together from (taken apart into) its 128-bit pieces, lowest
// first: interleaved layouts are read and written 8 pixels a piece.
template <class V>
constexpr int kPieces = int(sizeof(V) / 16);

template <class V>
inline V fromPieces(const __m128i* q) {
    if constexpr (sizeof(V) == 16) return q[0];
#ifdef __AVX2__
    else if constexpr (sizeof(V) == 32)
        return _mm256_set_m128i(q[1], q[0]);
#endif
#ifdef __AVX512BW__
    else {
        __m512i v = _mm512_castsi128_si512(q[0]);
        v = _mm512_inserti32x4(v, q[1], 1);
        v = _mm512_inserti32x4(v, q[2], 2);
        return _mm512_inserti32x4(v, q[3], 3);
    }
#endif
}
inline void toPieces(__m128i v, __m128i* q) { q[0] = v; }
#ifdef __AVX2__
inline void toPieces(__m256i v, __m128i* q) {
    q[0] = _mm256_castsi256_si128(v);
    q[1] = _mm256_extracti128_si256(v, 1);
}
#endif
#ifdef __AVX512BW__
inline void toPieces(__m512i v, __m128i* q) {
    q[0] = _mm512_maskz_extracti32x4_epi32(__mmask8(-1), v, 0);
    q[1] = _mm512_maskz_extracti32x4_epi32(__mmask8(-1), v, 1);
    q[2] = _mm512_maskz_extracti32x4_epi32(__mmask8(-1), v, 2);
    q[3] = _mm512_maskz_extracti32x4_epi32(__mmask8(-1), v, 3);
}
#endif

}  // namespace

#endif
