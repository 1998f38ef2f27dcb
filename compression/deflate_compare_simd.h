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

// While the best so far is shorter than one compare, that compare settles
// whether a candidate beats it: cheaper than a branch on two bytes that
// goes either way from one candidate to the next.  Past that (long runs
// such as zeros in binary data) the two bytes at the best length decide,
// or most candidates would be compared far.
inline int lengthIfLonger(const Vek8u* candidate, const Vek8u* current, int maxLen, int best) {
    if (best < kCompareBytes && maxLen >= kCompareBytes) {
        if (const uint32_t differ = differing(candidate, current)) return __builtin_ctz(differ);
        return kCompareBytes + matchLength(candidate + kCompareBytes, current + kCompareBytes, maxLen - kCompareBytes);
    }
    if (candidate[best] != current[best] || candidate[best - 1] != current[best - 1]) return best;
    return matchLength(candidate, current, maxLen);
}

}  // namespace

#endif
