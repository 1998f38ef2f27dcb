// Image type conversions, the avx512 level: every conversion on 512-bit vectors (AVX-512 F and BW).
// The kernels are shared with the other SIMD levels (convert_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "image/convert_exports.h"
#include "image/image_common.h"

namespace vek::avx512 {
#include "image/pixel_rows.h"
#include "image/convert_simd.h"

VEK_CONVERT_FROM_8U_MEMBERS
VEK_CONVERT_FROM_16U_MEMBERS
VEK_CONVERT_FROM_16S_MEMBERS
VEK_CONVERT_SATURATE_MEMBERS
VEK_CONVERT_16U_TO_8U_MEMBERS
VEK_CONVERT_FROM_32F_MEMBERS
}  // namespace vek::avx512
