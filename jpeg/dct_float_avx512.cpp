// JPEG single-precision forward DCT, the AVX-512 level: the vector levels'
// kernel (dct_simd.h) with the block read transposed as words by two
// 512-bit permutes, and 32 vector registers, so that the block never
// spills to the stack.  The integer transforms of this level are in
// dct_avx512.cpp, whose pair kernels share no code with this one.
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
