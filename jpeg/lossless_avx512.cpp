// Lossless JPEG row prediction, the AVX-512 BW level: the kernels of
// lossless_simd.h over 32 samples a vector.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::avx512 {
#include "jpeg/lossless_checks.h"
#include "jpeg/lossless_rows.h"
#include "jpeg/lossless_simd.h"

VEK_LOSSLESS_VECTOR_KERNELS(__m512i)

#include "jpeg/lossless_exports.h"
VEK_LOSSLESS_EXPORTS
}  // namespace vek::avx512
