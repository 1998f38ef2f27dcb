// A lane-wise choice between two integer vectors by a mask whose lanes are
// all ones or all zeros: one blend from SSE4.1, and/andnot/or below it.
// Include inside a level's namespace, within its unnamed namespace, after
// the intrinsics headers (SSE2 or later).
#ifndef VEK_SIGNAL_SIMD_SELECT_H
#define VEK_SIGNAL_SIMD_SELECT_H

inline __m128i select(__m128i mask, __m128i ifTrue, __m128i ifFalse) {
#ifdef __SSE4_1__
    return _mm_blendv_epi8(ifFalse, ifTrue, mask);
#else
    return _mm_or_si128(_mm_and_si128(mask, ifTrue), _mm_andnot_si128(mask, ifFalse));
#endif
}

#endif
