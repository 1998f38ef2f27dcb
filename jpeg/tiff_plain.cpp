// TIFF rows, the plain reference: PackBits a byte at a time, and the byte
// planes of 16-bit samples one sample at a time (high byte in plane 0).
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/tiff_exports.h"

namespace vek::plain {
#include "jpeg/tiff_checks.h"
#include "jpeg/packbits_codec.h"

namespace {
void joinPlanes(const Vek8u* high, const Vek8u* low, Vek16u* dst, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = static_cast<Vek16u>(high[i] << 8 | low[i]);
}
void splitPlanes(const Vek16u* src, Vek8u* high, Vek8u* low, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        high[i] = static_cast<Vek8u>(src[i] >> 8);
        low[i] = static_cast<Vek8u>(src[i]);
    }
}
}  // namespace

VEK_PACKBITS_EXPORTS(ByteScan)
VEK_TIFF_PLANE_EXPORTS
}  // namespace vek::plain
