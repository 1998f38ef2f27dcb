// Vector arithmetic, sse level: the float members with packed SSE.
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::sse {
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

VEK_ARITH_FLOAT_MEMBERS
}  // namespace vek::sse
