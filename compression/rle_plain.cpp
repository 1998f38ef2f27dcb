// Run-length coding, plain level: the item loops of rle_codec.h over
// byte-at-a-time scans.
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"

namespace vek::plain {
#include "compression/rle_codec.h"

namespace {
struct ByteScan {
    static int literalSpan(const Vek8u* p, int max) {
        int k = 0;
        while (k < max && p[k] != p[k + 1]) ++k;
        return k;
    }
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        int m = 0;
        while (m < max && p[m] == b) ++m;
        return m;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) { memcpy(dst, src, size_t(n)); }
    static void fill(Vek8u* dst, Vek8u b, int n) { memset(dst, b, size_t(n)); }
};
}  // namespace

VEK_RLE_EXPORTS(ByteScan)
}  // namespace vek::plain
