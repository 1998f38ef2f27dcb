// Block-matching metrics, the AVX2: two macroblock rows per 32-byte vector.
// The kernels are shared with the other SIMD levels (metrics_simd.h); this
// file instantiates them for this level and defines its members.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <utility>

#include "core/dispatch.h"
#include "image/image_common.h"

namespace vek::avx2 {
#include "core/simd_vocabulary.h"
#include "video/block_predict.h"
#include "video/video_checks.h"

namespace {
constexpr int kMaxVector = 32;
}  // namespace

#include "video/block_simd.h"
#include "video/metrics_simd.h"
#include "video/metrics_exports.h"

VEK_SAD_16X16_MEMBER
VEK_SAD_BLOCKS_MEMBERS
VEK_SQR_DIFF_MEMBERS
VEK_VARIANCE_MEMBER

}  // namespace vek::avx2
