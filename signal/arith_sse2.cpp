// Vector arithmetic, sse2 level: the 16-bit and 32-bit integer members with SSE2.
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::sse2 {
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

VEK_ARITH_16S_MEMBERS
VEK_ARITH_32S_ADD_MEMBERS
VEK_ARITH_32S_MUL_MEMBERS
}  // namespace vek::sse2
