// The words every SIMD kernel is written in: loads, stores, broadcasts and
// a lane-wise select, for each vector width the level may use.
//
// Included inside a level's namespace, after <immintrin.h>; everything has
// internal linkage, so each level gets its own copy built with its own
// instruction set and none can leak into another.  What is offered is read
// from the compiler's own macros:
//   __SSE__       128-bit float vectors (__m128);
//   __SSE2__      128-bit integer vectors (__m128i);
//   __SSE4_1__    select in one blend instruction;
//   __AVX2__      256-bit float and integer vectors (__m256, __m256i);
//   __AVX512F__   512-bit vectors (__m512, __m512i) and selects by a mask
//                 register; __AVX512BW__ adds the 8- and 16-bit lane masks.
//
// The names carry the width where the vector type cannot be told from the
// arguments, and are overloaded on the vector type where it can:
//   load128i(p), load128f(p), load256i(p) ...  any address
//   loadAligned128i(p) ...                     p aligned to the width
//   store(p, v)                                any address
//   storeAligned(p, v), storeStreaming(p, v)   p aligned; streaming stores
//                                              bypass the cache (follow a run
//                                              of them with _mm_sfence())
//   broadcast128(x), broadcast256(x) ...       x in every lane, by the type
//                                              of x (Vek8u ... Vek32f)
//   select(mask, ifTrue, ifFalse)              lane-wise; a vector mask has
//                                              lanes of all ones or all zeros,
//                                              a mask register one bit a lane
#ifndef VEK_CORE_SIMD_VOCABULARY_H
#define VEK_CORE_SIMD_VOCABULARY_H

namespace {

// ---- 128 bits ------------------------------------------------------------------
#ifdef __SSE__
inline __m128 load128f(const void* p) { return _mm_loadu_ps(static_cast<const float*>(p)); }
inline __m128 loadAligned128f(const void* p) { return _mm_load_ps(static_cast<const float*>(p)); }
inline void store(void* p, __m128 v) { _mm_storeu_ps(static_cast<float*>(p), v); }
inline void storeAligned(void* p, __m128 v) { _mm_store_ps(static_cast<float*>(p), v); }
inline void storeStreaming(void* p, __m128 v) { _mm_stream_ps(static_cast<float*>(p), v); }
inline __m128 broadcast128(Vek32f x) { return _mm_set1_ps(x); }

inline __m128 select(__m128 mask, __m128 ifTrue, __m128 ifFalse) {
#    ifdef __SSE4_1__
    return _mm_blendv_ps(ifFalse, ifTrue, mask);
#    else
    return _mm_or_ps(_mm_and_ps(mask, ifTrue), _mm_andnot_ps(mask, ifFalse));
#    endif
}
#endif

#ifdef __SSE2__
inline __m128i load128i(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
inline __m128i loadAligned128i(const void* p) { return _mm_load_si128(static_cast<const __m128i*>(p)); }
inline void store(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i*>(p), v); }
inline void storeAligned(void* p, __m128i v) { _mm_store_si128(static_cast<__m128i*>(p), v); }
inline void storeStreaming(void* p, __m128i v) { _mm_stream_si128(static_cast<__m128i*>(p), v); }

inline __m128i broadcast128(Vek8u x) { return _mm_set1_epi8(static_cast<char>(x)); }
inline __m128i broadcast128(Vek8s x) { return _mm_set1_epi8(x); }
inline __m128i broadcast128(Vek16u x) { return _mm_set1_epi16(static_cast<short>(x)); }
inline __m128i broadcast128(Vek16s x) { return _mm_set1_epi16(x); }
inline __m128i broadcast128(Vek32u x) { return _mm_set1_epi32(static_cast<int>(x)); }
inline __m128i broadcast128(Vek32s x) { return _mm_set1_epi32(x); }

inline __m128i select(__m128i mask, __m128i ifTrue, __m128i ifFalse) {
#    ifdef __SSE4_1__
    return _mm_blendv_epi8(ifFalse, ifTrue, mask);
#    else
    return _mm_or_si128(_mm_and_si128(mask, ifTrue), _mm_andnot_si128(mask, ifFalse));
#    endif
}
#endif

// ---- 256 bits ------------------------------------------------------------------
#ifdef __AVX2__
inline __m256 load256f(const void* p) { return _mm256_loadu_ps(static_cast<const float*>(p)); }
inline __m256 loadAligned256f(const void* p) { return _mm256_load_ps(static_cast<const float*>(p)); }
inline void store(void* p, __m256 v) { _mm256_storeu_ps(static_cast<float*>(p), v); }
inline void storeAligned(void* p, __m256 v) { _mm256_store_ps(static_cast<float*>(p), v); }
inline void storeStreaming(void* p, __m256 v) { _mm256_stream_ps(static_cast<float*>(p), v); }
inline __m256 broadcast256(Vek32f x) { return _mm256_set1_ps(x); }
inline __m256 select(__m256 mask, __m256 ifTrue, __m256 ifFalse) { return _mm256_blendv_ps(ifFalse, ifTrue, mask); }

inline __m256i load256i(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
inline __m256i loadAligned256i(const void* p) { return _mm256_load_si256(static_cast<const __m256i*>(p)); }
inline void store(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }
inline void storeAligned(void* p, __m256i v) { _mm256_store_si256(static_cast<__m256i*>(p), v); }
inline void storeStreaming(void* p, __m256i v) { _mm256_stream_si256(static_cast<__m256i*>(p), v); }

inline __m256i broadcast256(Vek8u x) { return _mm256_set1_epi8(static_cast<char>(x)); }
inline __m256i broadcast256(Vek8s x) { return _mm256_set1_epi8(x); }
inline __m256i broadcast256(Vek16u x) { return _mm256_set1_epi16(static_cast<short>(x)); }
inline __m256i broadcast256(Vek16s x) { return _mm256_set1_epi16(x); }
inline __m256i broadcast256(Vek32u x) { return _mm256_set1_epi32(static_cast<int>(x)); }
inline __m256i broadcast256(Vek32s x) { return _mm256_set1_epi32(x); }

inline __m256i select(__m256i mask, __m256i ifTrue, __m256i ifFalse) {
    return _mm256_blendv_epi8(ifFalse, ifTrue, mask);
}
#endif

// ---- 512 bits ------------------------------------------------------------------
// A mask register holds one bit a lane; its type names the lane width:
// __mmask16 selects 32-bit lanes, __mmask8 64-bit lanes, and with BW
// __mmask32 16-bit lanes and __mmask64 bytes.  Pass a mask of the right
// type (not an int), or another overload is chosen.
#ifdef __AVX512F__
inline __m512 load512f(const void* p) { return _mm512_loadu_ps(p); }
inline __m512 loadAligned512f(const void* p) { return _mm512_load_ps(p); }
inline void store(void* p, __m512 v) { _mm512_storeu_ps(p, v); }
inline void storeAligned(void* p, __m512 v) { _mm512_store_ps(p, v); }
inline void storeStreaming(void* p, __m512 v) { _mm512_stream_ps(static_cast<float*>(p), v); }
inline __m512 broadcast512(Vek32f x) { return _mm512_set1_ps(x); }
inline __m512 select(__mmask16 mask, __m512 ifTrue, __m512 ifFalse) {
    return _mm512_mask_blend_ps(mask, ifFalse, ifTrue);
}

inline __m512i load512i(const void* p) { return _mm512_loadu_si512(p); }
inline __m512i loadAligned512i(const void* p) { return _mm512_load_si512(p); }
inline void store(void* p, __m512i v) { _mm512_storeu_si512(p, v); }
inline void storeAligned(void* p, __m512i v) { _mm512_store_si512(p, v); }
inline void storeStreaming(void* p, __m512i v) { _mm512_stream_si512(static_cast<__m512i*>(p), v); }

inline __m512i broadcast512(Vek8u x) { return _mm512_set1_epi8(static_cast<char>(x)); }
inline __m512i broadcast512(Vek8s x) { return _mm512_set1_epi8(x); }
inline __m512i broadcast512(Vek16u x) { return _mm512_set1_epi16(static_cast<short>(x)); }
inline __m512i broadcast512(Vek16s x) { return _mm512_set1_epi16(x); }
inline __m512i broadcast512(Vek32u x) { return _mm512_set1_epi32(static_cast<int>(x)); }
inline __m512i broadcast512(Vek32s x) { return _mm512_set1_epi32(x); }

inline __m512i select(__mmask16 mask, __m512i ifTrue, __m512i ifFalse) {
    return _mm512_mask_blend_epi32(mask, ifFalse, ifTrue);
}
inline __m512i select(__mmask8 mask, __m512i ifTrue, __m512i ifFalse) {
    return _mm512_mask_blend_epi64(mask, ifFalse, ifTrue);
}
#    ifdef __AVX512BW__
inline __m512i select(__mmask64 mask, __m512i ifTrue, __m512i ifFalse) {
    return _mm512_mask_blend_epi8(mask, ifFalse, ifTrue);
}
inline __m512i select(__mmask32 mask, __m512i ifTrue, __m512i ifFalse) {
    return _mm512_mask_blend_epi16(mask, ifFalse, ifTrue);
}
#    endif
#endif

}  // namespace

#endif
