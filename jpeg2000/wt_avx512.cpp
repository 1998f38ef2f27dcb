// Wavelet transforms, the avx512 level: every member in 512-bit vectors.
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

namespace vek::avx512 {
using IntVec = __m512i;
using FloatVec = __m512;
#include "jpeg2000/wt_simd.h"
#include "jpeg2000/wt_lifting.h"
#include "jpeg2000/wt_passes.h"

VEK_WT_B53_MEMBERS
VEK_WT_D97_32F_MEMBERS
VEK_WT_D97_16S_MEMBERS
VEK_WT_D97_32S_MEMBERS
}  // namespace vek::avx512
