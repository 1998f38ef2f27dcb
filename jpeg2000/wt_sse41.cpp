// Wavelet transforms, the sse41 level: the 32-bit 9/7 members, whose 64-bit
// products take one signed multiply (pmuldq).
// The kernels are shared with the other SIMD levels (wt_simd.h); this file
// names its vectors, instantiates them with the shared walks and defines
// its members.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "jpeg2000/wt_checks.h"
#include "jpeg2000/wt_exports.h"
#include "jpeg2000/wt_steps.h"

namespace vek::sse41 {
using IntVec = __m128i;
using FloatVec = __m128;
#include "jpeg2000/wt_simd.h"
#include "jpeg2000/wt_lifting.h"
#include "jpeg2000/wt_passes.h"

VEK_WT_D97_32S_MEMBERS
}  // namespace vek::sse41
