// JPEG Huffman coding, AVX-512 level: the encoders over the zig-zag reorder as two word
// permutes and masks from test-into-mask instructions (huffman_simd.h).
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::avx512 {
#include "core/simd_vocabulary.h"
#include "jpeg/huffman_bits.h"
#include "jpeg/huffman_checks.h"
#include "jpeg/huffman_encode.h"
#include "jpeg/huffman_simd.h"

VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(VectorBlock)
}  // namespace vek::avx512
