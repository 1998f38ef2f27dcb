// Image copies, sets, mirrors and channel swaps, sse level: 32-bit lane shuffles (SHUFPS) for the 32-bit mirrors
// and the planar 32f copies.
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

namespace vek::sse {
#include "image/copy_rows.h"
#include "image/copy_simd.h"

VEK_IMAGE_PLANAR_32F_MEMBERS
VEK_IMAGE_MIRROR_32_C1_MEMBERS
VEK_IMAGE_MIRROR_32_C3_MEMBERS
}  // namespace vek::sse
