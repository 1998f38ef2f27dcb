// JPEG Huffman coding, SSE2 level: the encoders over the mask of nonzero coefficients from
// compares and movemasks (huffman_simd.h); the zig-zag reorder stays scalar.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::sse2 {
#include "core/simd_vocabulary.h"
#include "jpeg/huffman_bits.h"
#include "jpeg/huffman_checks.h"
#include "jpeg/huffman_encode.h"
#include "jpeg/huffman_simd.h"

VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(VectorBlock)
}  // namespace vek::sse2
