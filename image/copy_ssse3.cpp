// Image copies, sets, mirrors and channel swaps, ssse3 level: byte shuffles (PSHUFB) for the 8- and 16-bit
// mirrors, channel swaps and planar 8u and 16s copies.
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

namespace vek::ssse3 {
#include "image/copy_rows.h"
#include "image/copy_simd.h"

VEK_IMAGE_PLANAR_8U_MEMBER
VEK_IMAGE_PLANAR_16S_MEMBER
VEK_IMAGE_SWAP_MEMBERS
VEK_IMAGE_MIRROR_8U_C1_MEMBERS
VEK_IMAGE_MIRROR_8U_C3_MEMBERS
VEK_IMAGE_MIRROR_16_C1_MEMBERS
VEK_IMAGE_MIRROR_16_C3_MEMBERS
}  // namespace vek::ssse3
