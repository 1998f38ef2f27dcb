// JPEG Huffman coding, SSSE3 level: the encoders over the pshufb zig-zag reorder and the
// compare masks of huffman_simd.h.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::ssse3 {
#include "core/simd_vocabulary.h"
#include "jpeg/huffman_bits.h"
#include "jpeg/huffman_checks.h"
#include "jpeg/huffman_encode.h"
#include "jpeg/huffman_simd.h"

VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(VectorBlock)
}  // namespace vek::ssse3
