// JPEG single-precision forward DCT, the AVX-512 level: the vector levels'
// kernel (dct_simd.h) built with 32 vector registers, so that the block
// never spills to the stack, and rounding two rows of coefficients a
// 512-bit step.  (Transposes as permutes of 512-bit row pairs, and the
// block read transposed by word permutes, measured slower than the 256-bit
// unpacks on a core that runs 512-bit operations as two halves.)  The integer
// transforms of this level are in dct_avx512.cpp, whose pair kernels share
// no code with this one.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "core/round_float.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::avx512 {
#include "jpeg/dct_simd.h"

VEK_JPEG_DCT_FORWARD_FLOAT_MEMBER
}  // namespace vek::avx512
