// Wavelet transforms, the sse level: the float 9/7 members in 128-bit
// float vectors.
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

namespace vek::sse {
using FloatVec = __m128;
#ifdef __SSE2__
using IntVec = __m128i;  // x86-64 always has SSE2; this level still defines float members only
#endif
#include "jpeg2000/wt_simd.h"
#include "jpeg2000/wt_lifting.h"
#include "jpeg2000/wt_passes.h"

VEK_WT_D97_32F_MEMBERS
}  // namespace vek::sse
