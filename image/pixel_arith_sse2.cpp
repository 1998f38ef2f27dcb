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
#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "image/pixel_rows.h"

namespace {

// d[i..] = k(s[i..]) a vector at a time, two a turn (fewer loop branches).
// d may equal s.
template <class T, class K>
void mapRow(const T* s, T* d, size_t n, K k) {
    forEachBlock<16 / sizeof(T), 2>(
        n, [k](T* out, const T* in) { store(out, k(load128i(in))); }, d, s);
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
