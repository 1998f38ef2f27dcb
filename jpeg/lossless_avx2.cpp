// Lossless JPEG row prediction, the AVX2 level: the kernels of
// lossless_simd.h over 16 samples a vector.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::avx2 {
#include "jpeg/lossless_checks.h"
#include "jpeg/lossless_rows.h"
#include "jpeg/lossless_simd.h"

VEK_LOSSLESS_VECTOR_KERNELS(__m256i)

#include "jpeg/lossless_exports.h"
VEK_LOSSLESS_EXPORTS
}  // namespace vek::avx2
