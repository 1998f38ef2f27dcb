// The JPEG colour family, the SSSE3 level: the members that read or write
// three interleaved channels, which pshufb gathers and scatters.
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

namespace vek::ssse3 {
#include "core/simd_vocabulary.h"
#include "jpeg/colour_lanes.h"
#include "jpeg/colour_simd.h"
#include "jpeg/mcu_simd.h"
#include "jpeg/sample_simd.h"

namespace {
using LevelVector = __m128i;
}  // namespace

#include "jpeg/colour_rows.h"
#include "jpeg/mcu_rows.h"
#include "jpeg/sample_rows.h"

VEK_JPEG_COLOUR_INTERLEAVED_MEMBERS
VEK_JPEG_MCU_MEMBERS
}  // namespace vek::ssse3
