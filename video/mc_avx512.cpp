// Motion compensation and block differences, the AVX-512 (BW): 64-byte
// vectors, four rows of 16 or eight of 8 at a time.  The smaller blocks
// keep their 16- and 32-byte vectors but are built here too: the EVEX
// forms (three-input logic, sixteen more registers) make them a tenth
// faster than their AVX2 build.
// The kernels are shared with the other SIMD levels (mc_simd.h); this file
// instantiates them for this level and defines its members.
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
#include "video/mc_simd.h"
#include "video/mc_exports.h"

VEK_MC_WIDE_MEMBERS
VEK_MC_MEDIUM_MEMBERS
VEK_MC_NARROW_MEMBERS

}  // namespace vek::avx512
