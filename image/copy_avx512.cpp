// Image copies, sets, mirrors and channel swaps, avx512 level: fills, the
// AC4 copy, one-channel, 16-bit and 32-bit mirrors, planar 32f and 16s
// copies on 512-bit vectors (AVX-512 F and BW).
// The kernels are shared with the other SIMD levels (image/copy_simd.h);
// this file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>
#include <utility>

#include "core/dispatch.h"
#include "image/copy_checks.h"
#include "image/copy_exports.h"

namespace vek::avx512 {
#include "image/copy_rows.h"
#include "image/copy_simd.h"

VEK_IMAGE_COPY_AC4_MEMBER
VEK_IMAGE_SET_WIDE_MEMBERS
VEK_IMAGE_MIRROR_8U_C1_MEMBERS
VEK_IMAGE_MIRROR_16_C1_MEMBERS
VEK_IMAGE_MIRROR_16_C3_MEMBERS
VEK_IMAGE_MIRROR_32_C1_MEMBERS
VEK_IMAGE_MIRROR_32_C3_MEMBERS
VEK_IMAGE_PLANAR_32F_MEMBERS
VEK_IMAGE_PLANAR_16S_MEMBER
}  // namespace vek::avx512
