// The JPEG colour family, the AVX2 level: 16 pixels a block in 256-bit
// vectors, interleaved pixels gathered by pshufb in both 128-bit lanes, and
// two MCU rows a vector (YUYV rows two a vector when split).
// The kernels are shared by the vector levels (colour_simd.h, sample_simd.h,
// mcu_simd.h); this file instantiates them for this level and defines its
// members (core/export_list.h says which).
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <type_traits>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "jpeg/colour_exports.h"
#include "jpeg/colour_pixels.h"

namespace vek::avx2 {
#include "core/simd_vocabulary.h"
#include "jpeg/colour_lanes.h"
#include "jpeg/colour_simd.h"
#include "jpeg/mcu_simd.h"
#include "jpeg/sample_simd.h"

namespace {
using LevelVector = __m256i;
}  // namespace

#include "jpeg/colour_rows.h"
#include "jpeg/mcu_rows.h"
#include "jpeg/sample_rows.h"

VEK_JPEG_COLOUR_INTERLEAVED_MEMBERS
VEK_JPEG_COLOUR_OTHER_MEMBERS
VEK_JPEG_SAMPLE_MEMBERS
VEK_JPEG_MCU_MEMBERS
VEK_JPEG_SPLIT422_MEMBER
}  // namespace vek::avx2
