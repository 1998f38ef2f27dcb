// Wavelet transforms, the sse2 level: the integer members in 128-bit vectors
// (pmaddwd for the 16-bit 9/7, corrected unsigned products for the 32-bit).
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

namespace vek::sse2 {
using IntVec = __m128i;
using FloatVec = __m128;
#include "jpeg2000/wt_simd.h"
#include "jpeg2000/wt_lifting.h"
#include "jpeg2000/wt_passes.h"

VEK_WT_B53_MEMBERS
VEK_WT_D97_16S_MEMBERS
VEK_WT_D97_32S_MEMBERS
}  // namespace vek::sse2
