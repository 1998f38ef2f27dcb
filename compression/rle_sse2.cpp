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
#include "core/simd_vocabulary.h"

namespace {
struct VectorScan {
    static int literalSpan(const Vek8u* p, int max) {
        // Text has short stretches: look at a few bytes singly first.
        int k = 0;
        for (const int few = max < 8 ? max : 8; k < few; ++k)
            if (p[k] == p[k + 1]) return k;
        for (; k + 16 <= max; k += 16) {  // reads p[k..k+16], within p[0..max]
            const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(load128i(p + k), load128i(p + k + 1)));
            if (equal) return k + __builtin_ctz(unsigned(equal));
        }
        while (k < max && p[k] != p[k + 1]) ++k;
        return k;
    }
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        const __m128i run = broadcast128(b);
        int m = 0;
        for (; m + 16 <= max; m += 16) {
            const int differ = _mm_movemask_epi8(_mm_cmpeq_epi8(load128i(p + m), run)) ^ 0xFFFF;
            if (differ) return m + __builtin_ctz(unsigned(differ));
        }
        while (m < max && p[m] == b) ++m;
        return m;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        int k = 0;
        for (; k + 16 <= n; k += 16) store(dst + k, load128i(src + k));
        for (; k < n; ++k) dst[k] = src[k];
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        const __m128i run = broadcast128(b);
        int k = 0;
        for (; k + 16 <= n; k += 16) store(dst + k, run);
        if (k < n && n >= 16)
            store(dst + n - 16, run);  // the rest, overlapping bytes already b
        else
            for (; k < n; ++k) dst[k] = b;
    }
};
}  // namespace

VEK_RLE_EXPORTS(VectorScan)
}  // namespace vek::sse2
