// JPEG Huffman coding, AVX2 level: the encoders over 256-bit masks and the
// decoders of levels 6 and 7, compiled with BMI1/BMI2, so bit scans and
// variable shifts take one instruction (tzcnt, shlx/shrx).
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::avx2 {
#include "core/simd_vocabulary.h"
#include "jpeg/huffman_bits.h"
#include "jpeg/huffman_checks.h"
#include "jpeg/huffman_decode.h"
#include "jpeg/huffman_encode.h"
#include "jpeg/huffman_simd.h"

VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(VectorBlock)
VEK_JPEG_HUFFMAN_DECODE_EXPORTS(VectorBlock)
}  // namespace vek::avx2
