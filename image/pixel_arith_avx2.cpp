// Per-pixel arithmetic on images, the avx2 level: shifts and sign extension
// of 8 or 16 samples at a time (AVX2), and the constant products with
// this level's kernels of the vector arithmetic.
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

namespace vek::avx2 {
#include "image/pixel_rows.h"
#include "image/pixel_arith_simd.h"

VEK_PIXEL_SHIFT_MEMBERS
VEK_PIXEL_MULC_16S_MEMBER
VEK_PIXEL_MULC_32F_MEMBER
}  // namespace vek::avx2
