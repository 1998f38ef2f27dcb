// Motion compensation and block differences, the AVX2: 32-byte vectors,
// two rows of 16 or four of 8 at a time; the blocks of 16 bytes or fewer
// in 16-byte vectors, their rows inserted and extracted one instruction
// each (pinsrd, pextrd) and widened by pmovzxbw.
// The kernels are shared with the other SIMD levels (mc_simd.h); this file
// instantiates them for this level and defines its members.
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
#include "video/mc_simd.h"
#include "video/mc_exports.h"

VEK_MC_WIDE_MEMBERS
VEK_MC_MEDIUM_MEMBERS
VEK_MC_NARROW_MEMBERS

}  // namespace vek::avx2
