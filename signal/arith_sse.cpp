// Vector arithmetic, sse level: the float members with packed SSE.
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates the members this level implements.
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

namespace vek::sse {
VEK_ARITH_FLOAT_MEMBERS
}  // namespace vek::sse
