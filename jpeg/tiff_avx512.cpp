// TIFF rows, the AVX-512 BW level: the byte planes of tiff_simd.h, 64
// bytes at a time (PackBits stays with the SSE2 level).
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/tiff_exports.h"

namespace vek::avx512 {
#include "jpeg/tiff_checks.h"
#include "jpeg/tiff_simd.h"

namespace {
void joinPlanes(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    joinPlanesVector<__m512i>(high, low, dst, n);
}
void splitPlanes(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    splitPlanesVector<__m512i>(src, high, low, n);
}
}  // namespace

VEK_TIFF_PLANE_EXPORTS
}  // namespace vek::avx512
