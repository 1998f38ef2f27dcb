// Vector arithmetic, avx512 level: 512-bit vectors (AVX-512 F and BW): every member, on the
// same kernels as the SSE levels.
// The kernels are shared with the other SIMD levels (arith_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::avx512 {
#include "signal/arith_simd.h"
#include "signal/arith_exports.h"

VEK_ARITH_FLOAT_MEMBERS
VEK_ARITH_16S_MEMBERS
VEK_ARITH_32S_ADD_MEMBERS
VEK_ARITH_32S_MUL_MEMBERS
}  // namespace vek::avx512
