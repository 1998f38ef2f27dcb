// JPEG DCT, quantisation and level shift, the SSE2 level: the transforms in
// 32-bit lanes with emulated 32-bit products, the float path, the level
// shifts, the libjpeg-compatible inverse (idct_llm_simd.h).  The kernels
// are shared with the other vector levels (dct_simd.h); this file
// instantiates them for this level.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "core/round_float.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::sse2 {
#include "jpeg/dct_simd.h"
#include "jpeg/idct_llm_simd.h"

VEK_JPEG_DCT_INTEGER_MEMBERS
VEK_JPEG_IDCT_LLM_MEMBERS
VEK_JPEG_DCT_REDUCED_MEMBERS
VEK_JPEG_DCT_FLOAT_MEMBERS
VEK_JPEG_LEVEL_SHIFT_MEMBERS
}  // namespace vek::sse2
