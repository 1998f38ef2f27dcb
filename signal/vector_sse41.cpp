// Vector thresholds and the float-to-integer conversion, sse41 level: the
// signed 32-bit min/max (PMINSD, PMAXSD) clamp in one step, and ROUNDPS
// rounds to nearest even whatever the rounding mode.
// The kernels are shared with the SSE2 level (vector_simd.h); this file
// instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::sse41 {
#include "signal/vector_simd.h"
#include "signal/vector_exports.h"

VEK_VECTOR_TO_INT_MEMBER
VEK_VECTOR_THRESHOLD_MEMBERS
}  // namespace vek::sse41
