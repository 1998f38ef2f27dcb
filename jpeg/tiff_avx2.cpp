// TIFF rows, the AVX2 level: the byte planes of tiff_simd.h, 32 bytes at
// a time (PackBits stays with the SSE2 level).
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/tiff_exports.h"

namespace vek::avx2 {
#include "jpeg/tiff_checks.h"
#include "jpeg/tiff_simd.h"

namespace {
void joinPlanes(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    joinPlanesVector<__m256i>(high, low, dst, n);
}
void splitPlanes(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    splitPlanesVector<__m256i>(src, high, low, n);
}
}  // namespace

VEK_TIFF_PLANE_EXPORTS
}  // namespace vek::avx2
