// The deflate match finder, sse2 level: match lengths 16 bytes at a time.
//
// The matching call is the one of deflate_match.h, so the pairs are the
// plain level's; only the compare differs.  A 16-byte load never reaches
// past maxLen, so neither string is read beyond what the plain compare
// could read.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/deflate_hash_tables.h"
#include "compression/deflate_state.h"
#include "core/dispatch.h"

namespace vek::sse2 {
namespace {

// One bit per byte of the 16 from a and b that differ.
unsigned differing16(const Vek8u* a, const Vek8u* b) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
    const __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));
    return ~static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(x, y))) & 0xFFFF;
}

int matchLength(const Vek8u* candidate, const Vek8u* current, int maxLen) {
    int n = 0;
    for (; n + 16 <= maxLen; n += 16)
        if (const unsigned differ = differing16(candidate + n, current + n)) return n + __builtin_ctz(differ);
    while (n < maxLen && candidate[n] == current[n]) ++n;
    return n;
}

// While the best so far is shorter than 16 bytes, one 16-byte compare
// settles whether a candidate beats it: cheaper than a branch on two bytes
// that goes either way from one candidate to the next.  Past that (long
// runs such as zeros in binary data) the two bytes at the best length
// decide, or most candidates would be compared far.
int lengthIfLonger(const Vek8u* candidate, const Vek8u* current, int maxLen, int best) {
    if (best < 16 && maxLen >= 16) {
        if (const unsigned differ = differing16(candidate, current)) return __builtin_ctz(differ);
        return 16 + matchLength(candidate + 16, current + 16, maxLen - 16);
    }
    if (candidate[best] != current[best] || candidate[best - 1] != current[best - 1]) return best;
    return matchLength(candidate, current, maxLen);
}

// The running checksum through the implementations the export list gives
// this level: Adler-32's sse2 one and CRC-32's sse one.
VekStatus checksumAdler32(const Vek8u* src, int len, Vek32u* sum) { return sse2::veksAdler32_8u(src, len, sum); }
VekStatus checksumCrc32(const Vek8u* src, int len, Vek32u* sum) { return sse::veksCRC32_8u(src, len, sum); }

}  // namespace

#include "compression/deflate_match.h"

VekStatus VEK_CALL veksEncodeLZ77_8u(const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush,
                                     VekDeflateState* pState) {
    return encodeLz77(ppSrc, pSrcLen, ppPairs, pPairsLen, flush, pState);
}

}  // namespace vek::sse2
