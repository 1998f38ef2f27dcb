// Component transforms, the sse41 level: the 32-bit ICT, whose 64-bit
// products take one signed multiply (pmuldq) instead of SSE2's corrected
// unsigned one.
// The kernels are shared with the other SIMD levels (ct_simd.h); this file
// names its vectors, instantiates them and defines its members.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "jpeg2000/ct_checks.h"
#include "jpeg2000/ct_exports.h"

namespace vek::sse41 {
#include "jpeg2000/ct_walk.h"
using IntVec = __m128i;
using FloatVec = __m128;
using DoubleVec = __m128d;
#include "jpeg2000/ct_simd.h"

VEK_CT_ICT_32S_MEMBERS
}  // namespace vek::sse41
