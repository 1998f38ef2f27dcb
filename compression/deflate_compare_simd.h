// Match-length compares for the deflate match finder's SIMD levels:
// 16 bytes at a time with SSE2, 32 with AVX2 (and AVX-512, where the
// matches found are short enough that wider compares gain nothing).
//
// A vector load never reaches past maxLen, so neither string is read
// beyond what the plain byte-by-byte compare could read.
//
// Included inside a level's namespace after <immintrin.h>; defines the
// matchLength and lengthIfLonger that deflate_match.h expects.
#ifndef VEK_COMPRESSION_DEFLATE_COMPARE_SIMD_H
#define VEK_COMPRESSION_DEFLATE_COMPARE_SIMD_H

namespace {

#ifdef __AVX2__
constexpr int kCompareBytes = 32;
// One bit per byte of the 32 from a and b that differ.
inline uint32_t differing(const Vek8u* a, const Vek8u* b) {
    return ~static_cast<uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(load256i(a), load256i(b))));
}
#else
constexpr int kCompareBytes = 16;
inline uint32_t differing(const Vek8u* a, const Vek8u* b) {
    return ~static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(load128i(a), load128i(b)))) & 0xFFFF;
}
#endif

inline int matchLength(const Vek8u* candidate, const Vek8u* current, int maxLen) {
    int n = 0;
    for (; n + kCompareBytes <= maxLen; n += kCompareBytes)
        if (const uint32_t differ = differing(candidate + n, current + n)) return n + __builtin_ctz(differ);
    while (n < maxLen && candidate[n] == current[n]) ++n;
    return n;
}

// A candidate can beat the best so far only if it matches the two bytes
// that end the best length: most candidates are turned away by one 2-byte
// compare there, before any vector work.  The rest are measured, one
// vector compare at a time.
inline int lengthIfLonger(const Vek8u* candidate, const Vek8u* current, int maxLen, int best) {
    uint16_t candidateEnd, currentEnd;
    memcpy(&candidateEnd, candidate + best - 1, 2);
    memcpy(&currentEnd, current + best - 1, 2);
    if (candidateEnd != currentEnd) return best;
    return matchLength(candidate, current, maxLen);
}
}  // namespace

#endif
