// JPEG DCT, quantisation and level shift, the SSE4.1 level: the transforms
// with pmulld and pmovsx.  The kernels are shared with the other vector
// levels (dct_simd.h); this file instantiates them for this level.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "core/round_float.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::sse41 {
#include "jpeg/dct_simd.h"

VEK_JPEG_DCT_INTEGER_MEMBERS
VEK_JPEG_DCT_REDUCED_MEMBERS
}  // namespace vek::sse41
