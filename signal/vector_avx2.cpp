// Vector shifts, conversions and thresholds, avx2 level: every member on
// 256-bit vectors (AVX2).
// The kernels are shared with the other SIMD levels (vector_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::avx2 {
#include "signal/vector_simd.h"
#include "signal/vector_exports.h"

VEK_VECTOR_SHIFT_MEMBERS
VEK_VECTOR_INT_CONVERT_MEMBERS
VEK_VECTOR_TO_FLOAT_MEMBER
VEK_VECTOR_TO_INT_MEMBER
VEK_VECTOR_THRESHOLD_MEMBERS
}  // namespace vek::avx2
