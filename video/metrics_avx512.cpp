// Block-matching metrics, the AVX-512 (BW): four macroblock rows per 64-byte vector.
// The kernels are shared with the other SIMD levels (metrics_simd.h); this
// file instantiates them for this level and defines its members.
// GCC 12 reports the deliberately undefined source vector of its masked
// AVX-512 builtins (extract, insert, permute) as used uninitialized once
// they are inlined; the warning points into the intrinsics header, so it
// is silenced before that header is read.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <utility>

#include "core/dispatch.h"
#include "image/image_common.h"

namespace vek::avx512 {
#include "core/simd_vocabulary.h"
#include "video/block_predict.h"
#include "video/video_checks.h"

namespace {
constexpr int kMaxVector = 64;
}  // namespace

#include "video/block_simd.h"
#include "video/metrics_simd.h"
#include "video/metrics_exports.h"

VEK_SAD_16X16_MEMBER
VEK_SAD_BLOCKS_MEMBERS
VEK_SQR_DIFF_MEMBERS
VEK_VARIANCE_MEMBER

}  // namespace vek::avx512
