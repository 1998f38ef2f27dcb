// Per-pixel arithmetic on images, the SSE2 level: shifts and sign extension
// of 4 or 8 samples at a time, and the 16-bit product with the SSE2 kernel
// of the vector arithmetic.
//
// The SSE2 shifts by a register count already give the results of the
// plain rule for large counts: 0 to the left and the sign fill to the
// right once the count reaches the lane width.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "image/pixel_arith_exports.h"

namespace vek::sse2 {
#include "image/pixel_rows.h"

namespace {

// d[i..] = k(s[i..]) a vector at a time; the tail goes through a stack
// block so that every sample takes the same path.  d may equal s.
template <class T, class K>
void mapRow(const T* s, T* d, size_t n, K k) {
    constexpr size_t W = 16 / sizeof(T);
    auto at = [](const T* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); };
    auto put = [](T* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); };
    size_t i = 0;
    for (; i + 2 * W <= n; i += 2 * W) {  // two vectors a turn: fewer loop branches
        const __m128i a = at(s + i), b = at(s + i + W);
        put(d + i, k(a));
        put(d + i + W, k(b));
    }
    for (; i + W <= n; i += W) put(d + i, k(at(s + i)));
    if (i < n) {
        T block[W] = {};
        memcpy(block, s + i, (n - i) * sizeof(T));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(block),
                         k(_mm_loadu_si128(reinterpret_cast<const __m128i*>(block))));
        memcpy(d + i, block, (n - i) * sizeof(T));
    }
}

// The count register holds the full 32-bit count (zero-extended to 64).
void shiftLeftRow(const Vek32s* src, Vek32s* dst, size_t n, Vek32u count) {
    const __m128i c = _mm_cvtsi32_si128(static_cast<int>(count));
    mapRow(src, dst, n, [c](__m128i x) { return _mm_sll_epi32(x, c); });
}

void shiftRightRow(Vek16s* p, size_t n, Vek32u count) {
    const __m128i c = _mm_cvtsi32_si128(static_cast<int>(count));
    mapRow(static_cast<const Vek16s*>(p), p, n, [c](__m128i x) { return _mm_sra_epi16(x, c); });
}
void shiftRightRow(Vek32s* p, size_t n, Vek32u count) {
    const __m128i c = _mm_cvtsi32_si128(static_cast<int>(count));
    mapRow(static_cast<const Vek32s*>(p), p, n, [c](__m128i x) { return _mm_sra_epi32(x, c); });
}

void signExtendRow(Vek32s* p, size_t n, int bitSize) {
    const __m128i unused = _mm_cvtsi32_si128(32 - bitSize);
    mapRow(static_cast<const Vek32s*>(p), p, n,
           [unused](__m128i x) { return _mm_sra_epi32(_mm_sll_epi32(x, unused), unused); });
}

}  // namespace

VEK_PIXEL_SHIFT_MEMBERS
VEK_PIXEL_MULC_16S_MEMBER

}  // namespace vek::sse2
