// Vector arithmetic, sse41 level: the 32-bit products with the signed multiply of SSE4.1 (PMULDQ).
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::sse41 {
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

VEK_ARITH_32S_MUL_MEMBERS
}  // namespace vek::sse41
