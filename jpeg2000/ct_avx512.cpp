// Component transforms, the avx512 level: every member in 512-bit vectors.
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

namespace vek::avx512 {
#include "jpeg2000/ct_walk.h"
using IntVec = __m512i;
using FloatVec = __m512;
using DoubleVec = __m512d;
#include "jpeg2000/ct_simd.h"

VEK_CT_RCT_MEMBERS
VEK_CT_ICT_16S_MEMBERS
VEK_CT_ICT_32S_MEMBERS
VEK_CT_ICT_32F_MEMBERS
}  // namespace vek::avx512
