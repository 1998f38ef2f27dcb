// Vector shifts, conversions and thresholds, sse2 level: every integer and
// scaled-conversion member with SSE2 (the levels up to SSSE3 share it).
// The kernels are shared with the SSE4.1 level (vector_simd.h); this file
// instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::sse2 {
#include "signal/vector_simd.h"
#include "signal/vector_exports.h"

VEK_VECTOR_SHIFT_MEMBERS
VEK_VECTOR_INT_CONVERT_MEMBERS
VEK_VECTOR_TO_FLOAT_MEMBER
VEK_VECTOR_TO_INT_MEMBER
VEK_VECTOR_THRESHOLD_MEMBERS
}  // namespace vek::sse2
