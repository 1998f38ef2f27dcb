// TIFF rows, the SSE2 level: the PackBits scans and the byte planes of
// tiff_simd.h, 16 bytes at a time.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/tiff_exports.h"

namespace vek::sse2 {
#include "jpeg/tiff_checks.h"
#include "jpeg/packbits_codec.h"
#include "jpeg/packbits_simd.h"
#include "jpeg/tiff_simd.h"

namespace {
void joinPlanes(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    joinPlanesVector<__m128i>(high, low, dst, n);
}
void splitPlanes(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    splitPlanesVector<__m128i>(src, high, low, n);
}
}  // namespace

VEK_PACKBITS_EXPORTS(VectorScan)
VEK_TIFF_PLANE_EXPORTS
}  // namespace vek::sse2
