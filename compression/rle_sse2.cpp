// Run-length coding, sse2 level: the item loops of rle_codec.h over scans
// that compare 16 bytes at a time (each byte with its successor for
// literal stretches, with the run byte for run ends) and write 16 at a
// time.  The higher levels add nothing and use it too.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"

namespace vek::sse2 {
#include "compression/rle_codec.h"

namespace {
inline __m128i load16(const Vek8u* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void store16(Vek8u* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

struct VectorScan {
    static int literalSpan(const Vek8u* p, int max) {
        // Text has short stretches: look at a few bytes singly first.
        int k = 0;
        for (const int few = max < 8 ? max : 8; k < few; ++k)
            if (p[k] == p[k + 1]) return k;
        for (; k + 16 <= max; k += 16) {  // reads p[k..k+16], within p[0..max]
            const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(load16(p + k), load16(p + k + 1)));
            if (equal) return k + __builtin_ctz(unsigned(equal));
        }
        while (k < max && p[k] != p[k + 1]) ++k;
        return k;
    }
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        const __m128i run = _mm_set1_epi8(static_cast<char>(b));
        int m = 0;
        for (; m + 16 <= max; m += 16) {
            const int differ = _mm_movemask_epi8(_mm_cmpeq_epi8(load16(p + m), run)) ^ 0xFFFF;
            if (differ) return m + __builtin_ctz(unsigned(differ));
        }
        while (m < max && p[m] == b) ++m;
        return m;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        int k = 0;
        for (; k + 16 <= n; k += 16) store16(dst + k, load16(src + k));
        for (; k < n; ++k) dst[k] = src[k];
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        const __m128i run = _mm_set1_epi8(static_cast<char>(b));
        int k = 0;
        for (; k + 16 <= n; k += 16) store16(dst + k, run);
        if (k < n && n >= 16)
            store16(dst + n - 16, run);  // the rest, overlapping bytes already b
        else
            for (; k < n; ++k) dst[k] = b;
    }
};
}  // namespace

VEK_RLE_EXPORTS(VectorScan)
}  // namespace vek::sse2
