// Component transforms, the avx2 level: every member in 256-bit vectors.
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

namespace vek::avx2 {
#include "jpeg2000/ct_walk.h"
using IntVec = __m256i;
using FloatVec = __m256;
using DoubleVec = __m256d;
#include "jpeg2000/ct_simd.h"

VEK_CT_RCT_MEMBERS
VEK_CT_ICT_16S_MEMBERS
VEK_CT_ICT_32S_MEMBERS
VEK_CT_ICT_32F_MEMBERS
}  // namespace vek::avx2
