// Vector arithmetic, sse41 level: the 32-bit products with the signed multiply of SSE4.1 (PMULDQ).
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates the members this level implements.
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

namespace vek::sse41 {
VEK_ARITH_32S_MUL_MEMBERS
}  // namespace vek::sse41
