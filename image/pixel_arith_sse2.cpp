// Per-pixel arithmetic on images, the sse2 level: shifts and sign extension
// of four or eight samples at a time (SSE2), and the 16-bit constant product
// with this level's kernel of the vector arithmetic.
// The row kernels are shared with the other SIMD levels
// (image/pixel_arith_simd.h).
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "image/pixel_arith_exports.h"

namespace vek::sse2 {
#include "image/pixel_rows.h"
#include "image/pixel_arith_simd.h"

VEK_PIXEL_SHIFT_MEMBERS
VEK_PIXEL_MULC_16S_MEMBER
}  // namespace vek::sse2
