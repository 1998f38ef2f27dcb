// The Huffman block coders, avx512 level: the coders of
// deflate_block_coder.h compiled for AVX-512 (the pairs checked sixteen at a time, shifts by BMI2).  The bytes are the plain
// level's.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/deflate_huffman.h"
#include "compression/deflate_status.h"
#include "compression/deflate_tables.h"
#include "core/dispatch.h"

namespace vek::avx512 {
#include "compression/deflate_block_coder.h"

VEK_HUFFMAN_BLOCK_EXPORTS

}  // namespace vek::avx512
