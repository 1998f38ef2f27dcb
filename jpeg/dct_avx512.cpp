// JPEG DCT, the AVX-512 level: the forward integer DCTs with two of a
// pass's eight inputs a 512-bit register (dct_pairs.h), which halves the
// work of the butterflies and makes each transpose two rounds of
// two-source permutes.  The forward float transform of this level is in
// dct_float_avx512.cpp; the other members stay with the AVX2 level, which
// gains nothing from wider registers there.
#include <immintrin.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <array>
#include <type_traits>

#include "core/dispatch.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::avx512 {
#include "core/simd_vocabulary.h"
#include "jpeg/dct_pairs.h"

VEK_JPEG_DCT_FORWARD_MEMBERS
}  // namespace vek::avx512
