// MPEG-2 quantisation, the SSE4.1 level: the inverse quantisers with the 32-bit products of pmulld.
// The kernels are shared with the other SIMD level (quant_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <utility>

#include "core/dispatch.h"
#include "core/plain_float.h"

namespace vek::sse41 {
#include "core/simd_vocabulary.h"
#include "video/quant_tables.h"
#include "video/video_checks.h"
#include "video/quant_simd.h"
#include "video/quant_exports.h"

VEK_QUANT_INVERSE_MEMBERS

}  // namespace vek::sse41
