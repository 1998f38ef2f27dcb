// Row kernels of the per-pixel shifts and sign extension for the SIMD
// levels, written on the lane words of core/simd_lanes.h so that each level
// runs them on its widest vector.
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; internal linkage.  The shifts by
// a register count already give the results of the plain rule for large
// counts: 0 to the left and the sign fill to the right once the count
// reaches the lane width (the count register holds the full 32-bit count,
// zero-extended to 64).
#ifndef VEK_IMAGE_PIXEL_ARITH_SIMD_H
#define VEK_IMAGE_PIXEL_ARITH_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "core/simd_lanes.h"

namespace {

// d[i..] = k(s[i..]) a vector at a time, two a turn (fewer loop branches).
// d may equal s.
template <class T, class K>
void mapRow(const T* s, T* d, size_t n, K k) {
    forEachBlock<sizeof(WideI) / sizeof(T), 2>(
        n, [k](T* out, const T* in) { store(out, k(loadAs<WideI>(in))); }, d, s);
}

inline __m128i countRegister(Vek32u count) { return _mm_cvtsi32_si128(static_cast<int>(count)); }

void shiftLeftRow(const Vek32s* src, Vek32s* dst, size_t n, Vek32u count) {
    const __m128i c = countRegister(count);
    mapRow(src, dst, n, [c](WideI x) { return sll32(x, c); });
}

void shiftRightRow(Vek16s* p, size_t n, Vek32u count) {
    const __m128i c = countRegister(count);
    mapRow(static_cast<const Vek16s*>(p), p, n, [c](WideI x) { return sra16(x, c); });
}
void shiftRightRow(Vek32s* p, size_t n, Vek32u count) {
    const __m128i c = countRegister(count);
    mapRow(static_cast<const Vek32s*>(p), p, n, [c](WideI x) { return sra32(x, c); });
}

void signExtendRow(Vek32s* p, size_t n, int bitSize) {
    const __m128i unused = _mm_cvtsi32_si128(32 - bitSize);
    mapRow(static_cast<const Vek32s*>(p), p, n, [unused](WideI x) { return sra32(sll32(x, unused), unused); });
}

}  // namespace

#endif
